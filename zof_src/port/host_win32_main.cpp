// The entry of every program: arguments and environment come from Windows in UTF-16, and programs take UTF-8.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <stdlib.h>

#include <string>
#include <vector>

// C++ does not let a program call its main by that name.
extern "C" int program_main(int argc, char **argv) __asm__("main");
extern "C" int wmain(int argc, wchar_t **argv);

static std::string narrow(const wchar_t *text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out((size_t)(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    out.pop_back();
    return out;
}

static bool is_ascii(const wchar_t *text) {
    while (*text && *text < 0x80) {
        text++;
    }
    return !*text;
}

// getenv reads a copy of the environment in the code page of the user. _putenv_s changes that copy, and also what child
// processes inherit, which is set back.
static void environment_take() {
    wchar_t *const block = GetEnvironmentStringsW();
    for (const wchar_t *at = block; at && *at; at += wcslen(at) + 1) {
        const wchar_t *sign = wcschr(at, L'=');
        if (sign && sign != at && !is_ascii(sign)) {
            const std::wstring name(at, sign);
            _putenv_s(narrow(name.c_str()).c_str(), narrow(sign + 1).c_str());
            SetEnvironmentVariableW(name.c_str(), sign + 1);
        }
    }
    if (block) {
        FreeEnvironmentStringsW(block);
    }
}

int wmain(int argc, wchar_t **argv) {
    std::vector<std::string> texts;
    for (int i = 0; i < argc; i++) {
        texts.push_back(narrow(argv[i]));
    }
    std::vector<char *> args;
    for (std::string &text : texts) {
        args.push_back(text.data());
    }
    args.push_back(nullptr);
    environment_take();
    SetConsoleOutputCP(CP_UTF8);
    _setmode(0, _O_BINARY); // the same bytes as on other systems, for pictures and protocols
    _setmode(1, _O_BINARY);
    return program_main(argc, args.data());
}
