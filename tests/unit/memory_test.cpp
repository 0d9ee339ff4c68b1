// The two allocator families, their counters, the log, and the version strings.
#include "temp_project.h"
#include "zof_test.h"

#include <cstring>
#include <thread>
#include <vector>

TEST_CASE("blocks are aligned, zeroed in their family, and counted to the byte") {
    u32 own = zof_mem_count();
    u32 lv = zof_lv_mem_count();
    CHECK(zof_malloc(SIZE_MAX - 15) == nullptr);
    CHECK(zof_lv_malloc(PTRDIFF_MAX) == nullptr);

    auto *block = static_cast<u8 *>(zof_realloc(nullptr, 100));
    CHECK(reinterpret_cast<uintptr_t>(block) % 16 == 0);
    CHECK(zof_mem_count() == own + 100);
    std::memset(block, 0xAA, 100);
    block = static_cast<u8 *>(zof_realloc(block, 40));
    CHECK(zof_mem_count() == own + 40);
    block = static_cast<u8 *>(zof_realloc(block, 4000));
    CHECK(block[39] == 0xAA);
    CHECK(std::vector<u8>(block + 40, block + 4000) == std::vector<u8>(3960, 0));
    CHECK(zof_realloc(block, SIZE_MAX - 4) == nullptr);
    CHECK(zof_mem_count() == own + 4000);
    CHECK(zof_realloc(block, 0) == nullptr);
    CHECK(zof_mem_count() == own);

    void *picture = zof_lv_realloc(zof_lv_malloc(7), 13);
    CHECK(zof_lv_mem_count() == lv + 13);
    CHECK(zof_mem_count() == own);
    zof_free(picture); // the other family's function: the block still knows its own
    CHECK(zof_lv_mem_count() == lv);
}

TEST_CASE("counters stay exact under threads") {
    u32 before = zof_mem_count();
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; t++) {
        threads.emplace_back([t] {
            void *p = nullptr;
            for (size_t i = 1; i < 5000; i++) {
                p = zof_realloc(p, i * 7919 % 512 + static_cast<size_t>(t) + 1);
            }
            zof_free(p);
        });
    }
    for (auto &thread : threads) {
        thread.join();
    }
    CHECK(zof_mem_count() == before);
}

TEST_CASE("free memory is what the assumed total leaves and never below nothing") {
    zof_win_mem_total_set(1);
    void *large = zof_malloc(2 << 20);
    CHECK(zof_mem_get_free() == 0);
    zof_free(large);
    zof_win_mem_total_set(65535);
    CHECK(zof_mem_get_free() == UINT32_MAX);
}

TEST_CASE("the log ends every message with one line end more") {
    CHECK(printed([&] { CHECK(zof_printf("x%d\n", 1) == 3); }) == "x1\n\n");
    const auto tell = [](char letter) {
        for (int i = 0; i < 500; i++) {
            zof_printf("%s", std::string(30, letter).c_str());
        }
    };
    std::string text = printed([&] {
        std::thread other(tell, 'a');
        tell('b');
        other.join();
    });
    CHECK(!contains(text, "ab"));
    CHECK(!contains(text, "ba"));
}
