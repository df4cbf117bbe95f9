// vzconv on POSIX systems: arguments are bytes, taken as UTF-8.
#include <csignal>
#include <iostream>

#include "vzconv/command_line.h"

int main(int argc, char** argv) {
    // A reader of our output that goes away is a failed write, with a message, not the end by a signal.
    std::signal(SIGPIPE, SIG_IGN);
    return vzconv::run({argv + 1, argv + argc}, {std::cin, std::cout, std::cerr});
}
