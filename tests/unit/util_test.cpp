// Numbers in texts, and periodic tasks.
#include "zof_test.h"

TEST_CASE("a number stops at the first character that is none and saturates") {
    const struct {
        const char *text;
        s32 value;
    } rows[] = {{"-17", -17},
                {"+5x9", 5},
                {" 5", 0},
                {"--5", 0},
                {"", 0},
                {nullptr, 0},
                {"2147483648", INT32_MAX},
                {"-2147483648", INT32_MIN},
                {"-99999999999", INT32_MIN}};
    for (const auto &row : rows) {
        CAPTURE(row.text);
        CHECK(zof_atoi(row.text) == row.value);
    }
}

TEST_CASE("a task runs by its period, pauses, runs when it is made ready, and once") {
    lv_init();
    static int runs;
    runs = 0;
    const auto turn = [](zof_task_t *ready) {
        zof_task_ready(ready);
        lv_timer_handler();
        return runs;
    };
    zof_task_t *task =
        zof_task_create([](zof_task_t *t) { ++*static_cast<int *>(zof_task_get_user_data(t)); }, 10000, &runs);
    REQUIRE(task);
    CHECK(turn(nullptr) == 0);
    CHECK(turn(task) == 1);
    zof_task_set_cb_pause(task);
    CHECK(turn(task) == 1);
    zof_task_set_cb_resume(task);
    zof_task_set_cb(task, nullptr); // keeps the callback
    CHECK(turn(task) == 2);
    zof_task_set_cb(task, [](zof_task_t *) { runs += 10; });
    zof_task_once(task);
    CHECK(turn(task) == 12);
    CHECK(turn(nullptr) == 12); // the task deleted itself
}
