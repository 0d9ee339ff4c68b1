// The main loop: when it sleeps, for how long, and what wakes it.
#include "zof_test.h"

#include <atomic>
#include <thread>

#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "port/zof_host.h"

static u32 now;
static bool input;
static std::atomic<u32> wakes;

static u32 turn_at(u32 ms) {
    now = ms;
    zof_lock gui(dis_mutex);
    return zof_loop_turn();
}

TEST_CASE("the loop sleeps for the period of a source unless it is woken or there is user input") {
    static constexpr zof_clock_t clock = {[] { return now; }, [](u32) {}};
    static constexpr zof_loop_ops_t ops = {.input = [] { return input; }, .wake = [] { wakes++; }};
    zof_clock_set(&clock);
    lv_init();
    zof_loop_init();
    drv_loop_t = &ops;
    static u32 looks, settled;
    static zof_loop_source source = {.settle = [] { settled++; }};
    zof_loop_source_add(&source, zof_task_create([](zof_task_t *) { looks++; }, 5, nullptr));
    zof_task_t *other = zof_task_create([](zof_task_t *) {}, 80, nullptr);
    CHECK(turn_at(10000) == 80);
    CHECK((looks == 1 && settled == 1));
    CHECK(turn_at(10030) == 50);
    std::thread([] { zof_loop_wake(&source); }).join(); // due immediately, although its period has just begun
    looks = 0;
    CHECK(turn_at(10031) == 49);
    CHECK((looks == 1 && wakes == 1));
    input = true;
    CHECK(turn_at(10032) == 4); // now it is polled at its own period
    input = false;
    CHECK(turn_at(12000) <= 5);
    zof_task_set_cb_pause(other);
    CHECK(turn_at(14100) == 500);
    { zof_lock own(dis_mutex); }
    CHECK(wakes == 1);
    std::thread([] { zof_lock changed(dis_mutex); }).join();
    CHECK(wakes == 2);
    drv_loop_t = nullptr;
    zof_clock_set(nullptr);
}
