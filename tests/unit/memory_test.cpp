// The two allocator families, their counters, and the log.
#include "temp_project.h"
#include "zof_test.h"

#include <cstring>
#include <thread>

TEST_CASE("blocks are aligned, zeroed in their family, and counted to the byte") {
    u32 own = zof_mem_count();
    u32 lv = zof_lv_mem_count();
    CHECK((zof_malloc(SIZE_MAX - 15) == nullptr && zof_lv_malloc(PTRDIFF_MAX) == nullptr));
    auto *block = static_cast<u8 *>(zof_realloc(nullptr, 100));
    CHECK(reinterpret_cast<uintptr_t>(block) % 16 == 0);
    std::memset(block, 0xAA, 100);
    block = static_cast<u8 *>(zof_realloc(zof_realloc(block, 40), 4000));
    CHECK(block[39] == 0xAA);
    CHECK(std::vector<u8>(block + 40, block + 4000) == std::vector<u8>(3960, 0));
    CHECK(zof_realloc(block, SIZE_MAX - 4) == nullptr);
    CHECK(zof_mem_count() == own + 4000);
    CHECK(zof_realloc(block, 0) == nullptr);

    void *picture = zof_lv_realloc(zof_lv_malloc(7), 13);
    CHECK((zof_lv_mem_count() == lv + 13 && zof_mem_count() == own));
    zof_free(picture); // the other family's function: the block still knows its own
    CHECK(zof_lv_mem_count() == lv);
}

TEST_CASE("counters stay exact under threads, and each message of the log stays whole, with one line end more") {
    u32 before = zof_mem_count();
    const auto work = [](int t) {
        void *p = nullptr;
        for (size_t i = 1; i < 5000; i++) {
            p = zof_realloc(p, i * 7919 % 512 + static_cast<size_t>(t) + 1);
            if (i % 10 == 0) {
                zof_printf("%s\n", std::string(30, static_cast<char>('a' + t)).c_str());
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
