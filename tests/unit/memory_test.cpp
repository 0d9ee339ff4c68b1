// The two allocator families, their counters, and the log.
#include "temp_project.h"

#include <algorithm>
#include <cstring>
#include <thread>

TEST_CASE("blocks are aligned, zeroed if their family says so, and counted to the byte") {
    u32 own = zof_mem_count();
    u32 lv = zof_lv_mem_count();
    CHECK((zof_malloc(SIZE_MAX - 15) == nullptr && zof_lv_malloc(PTRDIFF_MAX) == nullptr));
    auto *block = (u8 *)zof_realloc(nullptr, 100);
    CHECK((uintptr_t)block % 16 == 0);
    std::memset(block, 0xAA, 100);
    block = (u8 *)(zof_realloc(zof_realloc(block, 40), 4000));
    CHECK(block[39] == 0xAA);
    CHECK(std::vector<u8>(block + 40, block + 4000) == std::vector<u8>(3960, 0));
    CHECK(zof_realloc(block, SIZE_MAX - 4) == nullptr);
    CHECK(zof_mem_count() == own + 4000);
    CHECK(zof_realloc(block, 0) == nullptr);

    void *picture = zof_lv_realloc(zof_lv_malloc(7), 13);
    CHECK((zof_lv_mem_count() == lv + 13 && zof_mem_count() == own));
    zof_free(picture); // the function of the other family: the block remembers its own
    CHECK(zof_lv_mem_count() == lv);
}

TEST_CASE("counters are exact with threads, and each log message stays whole and gets one more line end") {
    u32 before = zof_mem_count();
    const auto work = [](int t) {
        void *p = nullptr;
        for (size_t i = 1; i < 5000; i++) {
            p = zof_realloc(p, i * 7919 % 512 + (size_t)t + 1);
            if (i % 10 == 0) {
                zof_printf("%s\n", std::string(30, (char)('a' + t)).c_str());
            }
        }
        zof_free(p);
    };
    const std::string text = printed([&] {
        std::thread first(work, 0), second(work, 1), third(work, 2);
        first.join();
        second.join();
        third.join();
    });
    CHECK(zof_mem_count() == before);
    CHECK(text.size() == 3 * 499 * 32);
    for (size_t at = 0; at < text.size(); at += 32) {
        CHECK(text.substr(at, 32) == std::string(30, text[at]) + "\n\n");
    }
}

TEST_CASE("the log escapes control characters in arguments, keeps the format's line ends, and truncates nothing") {
    char all[256]; // every control character: none is left to mark the line end of the format
    for (int i = 0; i < 255; i++) {
        all[i] = (char)(i + 1);
    }
    all[255] = '\0';
    const std::string whole(5000, 'w');
    const struct {
        const char *inserted;
        std::string shown;
    } rows[] = {
        {"a\nfake: line\r", "a\\x0afake: line\\x0d"},
        {"\x1b[2J\x7f", "\\x1b[2J\\x7f"},
        {"\xC2\x9B[ \xC3\xA9 \xFF", "\\xc2\\x9b[ \xC3\xA9 \xFF"}, // U+009B is a control character, an accent is not
        {whole.c_str(), whole},
    };
    for (const auto &row : rows) {
        s32 count = 0;
        const std::string text = printed([&] { count = zof_printf("x: %s\n", row.inserted); });
        CHECK(text == "x: " + row.shown + "\n\n");
        CHECK((u32)count == strlen(row.inserted) + 4);
    }
    const std::string text = printed([&] { zof_printf("%s\n", all); });
    CHECK(std::count(text.begin(), text.end(), '\n') == 1); // its own is escaped too
    CHECK(contains(text, "\\x1f !"));
    CHECK(printed([] { zof_printf("one\ntwo\n"); }) == "one\ntwo\n\n");
}

TEST_CASE("free memory is the difference to the assumed total, and may be negative") {
    zof_win_mem_total_set(1);
    void *block = zof_malloc(3 << 20);
    const s32 left = zof_mem_get_free();
    CHECK((left < -(2 << 20) + 1 && left > -(3 << 20)));
    zof_free(block);
    CHECK(zof_mem_get_free() > 0);
    zof_win_mem_total_set(65535);
    CHECK(zof_mem_get_free() == INT32_MAX);
}
