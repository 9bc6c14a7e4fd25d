#pragma once

// The program's command line:
//   vor [--database FILE]                  the desktop program
//   vor init    --database FILE            create or migrate a database, then exit
//   vor summary --database FILE            print what a database holds
//   vor export  --database FILE --register CODE --dir DIR
//                                          write the joined exchange file of a register
//   vor demo-register --database FILE      create a sample register and list the registers
//   vor --version
class QCommandLineParser;

namespace app {

int runCommandLine(int argc, char* argv[]);

// Reads the arguments of the running application into `parser`. --help and --version print and
// end the program with status 0; an unknown option or an option without its value ends it with
// status 2, as every other wrong argument does.
void processArguments(QCommandLineParser& parser);

} // namespace app
