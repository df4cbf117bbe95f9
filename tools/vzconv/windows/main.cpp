// vzconv on Windows: the command line is UTF-16, the streams are opened as text with their own line ends and
// code page. Inside the tool everything is UTF-8 and bytes are bytes.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <iostream>

#include "vzconv/command_line.h"
#include "vzconv/unicode.h"

// The command shell leaves '*' and '?' to the program: the C runtime expands them when this is set.
extern "C" {
int _dowildcard = -1;
}

namespace {

// A console shows our UTF-8 as long as this lives; the code page belongs to the console and outlives the
// program.
class Utf8Console {
public:
    Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() {
        if (before_ != 0) SetConsoleOutputCP(before_);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    UINT before_;
};

std::string utf8_of(const wchar_t* text) {
    const std::wstring_view wide = text;
    return vzconv::utf8_from_utf16(std::u16string(wide.begin(), wide.end()));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
    const Utf8Console console;
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(utf8_of(argv[i]));
    return vzconv::run(arguments, {std::cin, std::cout, std::cerr});
}
