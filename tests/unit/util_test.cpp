// Numbers in texts, and periodic tasks.
#include "zof_test.h"

#include <string>

TEST_CASE("a number stops at the first character that is none and saturates") {
    std::string got;
    for (const char *text :
         {"-17", "+5x9", " 5", "--5", "", (const char *)nullptr, "2147483648", "-2147483648", "-99999999999"}) {
        got += std::to_string(zof_atoi(text)) + " ";
    }
    CHECK(got == "-17 5 0 0 0 0 2147483647 -2147483648 -2147483648 ");
}

TEST_CASE("a task runs by its period, pauses, runs when it is made ready, and once") {
    lv_init();
    static int runs = 0;
    const auto turn = [](zof_task_t *ready) {
        zof_task_ready(ready);
        lv_timer_handler();
        return runs;
    };
    zof_task_t *task =
        zof_task_create([](zof_task_t *t) { ++*static_cast<int *>(zof_task_get_user_data(t)); }, 10000, &runs);
    CHECK(turn(nullptr) == 0);
    CHECK(turn(task) == 1);
    zof_task_set_cb_pause(task);
    CHECK(turn(task) == 1);
    zof_task_set_cb_resume(task);
    zof_task_set_cb(task, nullptr); // keeps the callback
    zof_task_once(task);
    CHECK(turn(task) == 2);
    CHECK(turn(nullptr) == 2); // the task deleted itself
}
