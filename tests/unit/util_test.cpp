// Numbers in texts, joined texts, periodic tasks, and the buffer between a line and its client.
#include "zof_test.h"

#include <string>

TEST_CASE("a number ends at the first character that is not a digit, and saturates") {
    std::string got;
    for (const char *text : {"-17", "+5x9", " 5", "", (const char *)nullptr, "2147483648", "-99999999999"}) {
        got += std::to_string(zof_atoi(text)) + " ";
    }
    CHECK(got == "-17 5 0 0 0 2147483647 -2147483648 ");
}

TEST_CASE("texts are joined only where they fit with their terminator, and copied up to a length") {
    char out[6] = "kept";
    CHECK((!zof_text_join(out, sizeof(out), "abc", nullptr, "def") && std::string(out) == "kept"));
    CHECK((zof_text_join(out, sizeof(out), "abc", nullptr, "de") && std::string(out) == "abcde"));
    char *part = zof_text_copy_n(out, 2);
    CHECK((std::string(part) == "ab" && !zof_text_copy(nullptr)));
    zof_free(part);
}

TEST_CASE("a chunk or tail that does not fit is dropped completely, and the half held by a client stays intact") {
    pipo_buff *b = pipo_buff_create(4, 2);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"one", 3) == 0);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"xy", 2) == -1);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"bc", 2) == 0);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"def", 3) == -1);
    const pipo_half *held = pipo_buff_get_pi_and_switch(b);
    pipo_buff_set_pi(b, (const u8 *)"two", 3);
    CHECK(std::string(held->read, held->read + held->t_len + held->len) == "bcone");
    CHECK(pipo_buff_delete(b) == 0);
}

TEST_CASE("a task runs at its period, can be paused, made ready, and run once") {
    lv_init();
    static int runs;
    runs = 0;
    const auto turn = [](zof_task_t *ready) {
        zof_task_ready(ready);
        lv_timer_handler();
        return runs;
    };
    zof_task_t *task = zof_task_create([](zof_task_t *t) { ++*(int *)zof_task_get_user_data(t); }, 10000, &runs);
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
