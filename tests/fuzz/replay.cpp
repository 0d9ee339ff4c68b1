// Runs a fuzzer on each file in the given folders, then on damaged copies, which are the same in every run.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>

#include "fuzz.h"
#include "temp_project.h"

enum { DAMAGED = 2000, DAMAGED_SECONDS = 20 }; // fewer on a slow machine

// Returns the end of a JSON value.
static size_t value_end(const std::string &text, size_t at) {
    for (s32 depth = 0; at < text.size() && (depth > 0 || !strchr(",]}", text[at])); at++) {
        depth += text[at] == '[' || text[at] == '{';
        depth -= text[at] == ']' || text[at] == '}';
    }
    return at;
}

// Changes a byte, cuts the end, replaces a JSON value, or inserts a piece of another input; up to three times.
static std::string damaged(std::string text, const std::string &other, std::mt19937 &random) {
    static const char *const odd[] = {
        "null", "true", "-1", "70000", "2147483647", "1e999", "\"#x\"", "{}", "[1, [2], {\"a\": 3}]", "[\"a\", null]"};
    for (u32 n = random() % 3 + 1; n > 0 && text.size() > 1; n--) {
        const size_t at = 1 + random() % (text.size() - 1); // the first byte selects the meaning of the others
        const size_t colon = text.find(':', at);
        if (random() % 12 == 0) {
            text.resize(at);
        } else if (colon != std::string::npos && random() % 4) {
            text.replace(colon + 1, value_end(text, colon + 1) - colon - 1, odd[random() % std::size(odd)]);
        } else if (random() % 4) {
            text[at] = (char)(random() % 2 ? random() : 0xFF);
        } else {
            text.insert(at, other, random() % (other.size() + 1), random() % 24);
        }
    }
    return text;
}

int main(int argc, char **argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::string> files;
    for (int i = 1; i < argc; i++) {
        for (const auto &entry : std::filesystem::directory_iterator(argv[i])) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> texts;
    for (const std::string &file : files) {
        fprintf(stderr, "%s\n", file.c_str());
        texts.push_back(file_text(file));
        LLVMFuzzerTestOneInput((const uint8_t *)texts.back().data(), texts.back().size());
    }
    const std::string kept = std::filesystem::absolute(argv[0]).string() + ".input";
    fprintf(stderr, "%zu inputs; damaged ones follow, the last one is kept in %s\n", files.size(), kept.c_str());
    std::mt19937 random;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(DAMAGED_SECONDS);
    for (u32 i = 0; i < DAMAGED && !texts.empty() && std::chrono::steady_clock::now() < end; i++) {
        const std::string text = damaged(texts[i % texts.size()], texts[random() % texts.size()], random);
        std::ofstream(kept, std::ios::binary) << text;
        LLVMFuzzerTestOneInput((const uint8_t *)text.data(), text.size());
    }
    return files.empty() ? 1 : 0;
}
