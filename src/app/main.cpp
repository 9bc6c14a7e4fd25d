#include "app/CommandLine.h"

int main(int argc, char* argv[]) {
    return app::runCommandLine(argc, argv);
}
