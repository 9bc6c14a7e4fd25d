#pragma once

// The program's command line:
//   vor [--database FILE]                  the desktop program
//   vor init    --database FILE            create or migrate a database, then exit
//   vor summary --database FILE            print what a database holds
//   vor export  --database FILE --register CODE --dir DIR
//                                          write the joined exchange file of a register
//   vor demo-register --database FILE      create a sample register and list the registers
//   vor --version
namespace app {

int runCommandLine(int argc, char* argv[]);

} // namespace app
