// Bytes, texts and periodic tasks.
#include "zof_test.h"

#include <cstring>

TEST_CASE("bytes turn round and words swap") {
    u8 odd[] = {1, 2, 3};
    byte_rev(odd, 3);
    CHECK(std::memcmp(odd, "\3\2\1", 3) == 0);
    byte_rev(odd, 1);
    byte_rev(nullptr, 3);
    CHECK(odd[0] == 3);
    CHECK(zof_rev16(0x11223344) == 0x11224433);
    CHECK(zof_rev32(0x11223344) == 0x44332211);
    CHECK(charCount("a,b,,c", ',') == 3);
    CHECK(charCount("", 'x') == 0);
    CHECK(charCount(nullptr, 'x') == 0);
}

TEST_CASE("a number stops at the first character that is none and saturates") {
    struct {
        const char *text;
        s32 value;
    } rows[] = {
        {"0", 0},
        {"-17", -17},
        {"+5x9", 5},
        {" 5", 0},
        {"--5", 0},
        {"", 0},
        {"-", 0},
        {"2147483647", INT32_MAX},
        {"-2147483647", -INT32_MAX},
        {"2147483648", INT32_MAX},
        {"-2147483648", INT32_MIN},
        {"99999999999", INT32_MAX},
        {"-99999999999", INT32_MIN},
        {nullptr, 0},
    };
    for (const auto &row : rows) {
        CAPTURE(row.text);
        CHECK(zof_atoi(row.text) == row.value);
    }
}

TEST_CASE("a task runs by its period, pauses, runs when it is made ready, and once") {
    lv_init();
    static int runs;
    runs = 0;
    zof_task_t *task =
        zof_task_create([](zof_task_t *t) { ++*static_cast<int *>(zof_task_get_user_data(t)); }, 10000, &runs);
    REQUIRE(task);
    lv_timer_handler();
    CHECK(runs == 0);
    zof_task_ready(task);
    lv_timer_handler();
    CHECK(runs == 1);
    zof_task_set_cb_pause(task);
    zof_task_ready(task);
    lv_timer_handler();
    CHECK(runs == 1);
    zof_task_set_cb_resume(task);
    zof_task_set_cb(task, nullptr);
    zof_task_ready(task);
    lv_timer_handler();
    CHECK(runs == 2);
    zof_task_set_cb(task, [](zof_task_t *) { runs += 10; });
    zof_task_set_period(task, 20000);
    zof_task_reset(task);
    zof_task_once(task);
    zof_task_ready(task);
    lv_timer_handler();
    zof_task_t *gone = nullptr; // the task deleted itself
    zof_task_ready(gone);
    lv_timer_handler();
    CHECK(runs == 12);

    CHECK(zof_task_create(nullptr, 1, nullptr) == nullptr);
    CHECK(zof_task_get_user_data(nullptr) == nullptr);
    zof_task_del(nullptr);
    zof_task_set_cb(nullptr, nullptr);
    zof_task_set_cb_pause(nullptr);
    zof_task_set_cb_resume(nullptr);
    zof_task_set_period(nullptr, 1);
    zof_task_once(nullptr);
    zof_task_reset(nullptr);
}
