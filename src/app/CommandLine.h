#pragma once

// The program's command line:
//   vor [--database FILE]                  the desktop program
//   vor init    --database FILE            create or migrate a database, then exit
//   vor summary --database FILE            print what a database holds
//   vor demo-register --database FILE      create a sample register and list the registers
//   vor --version
namespace app {

int runCommandLine(int argc, char* argv[]);

} // namespace app
