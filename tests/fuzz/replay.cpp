// Gives the files that are named, and those in folders that are named, to a fuzzer, one after the other.
#include <algorithm>
#include <filesystem>

#include "fuzz.h"
#include "temp_project.h"

int main(int argc, char **argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::string> files;
    for (int i = 1; i < argc; i++) {
        if (!std::filesystem::is_directory(argv[i])) {
            files.push_back(argv[i]);
            continue;
        }
        for (const auto &entry : std::filesystem::directory_iterator(argv[i])) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const std::string &file : files) {
        fprintf(stderr, "%s\n", file.c_str());
        const std::string text = file_text(file);
        LLVMFuzzerTestOneInput((const uint8_t *)text.data(), text.size());
    }
    fprintf(stderr, "%zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
