// The watch for an update disk and its progress screen, on the test's clock; the copy's thread runs in real time.
#include <unistd.h>

#include "screen_fixture.h"
#include "temp_project.h"

static std::string disk;

static void put(const std::string &name, const std::string &text) {
    std::filesystem::create_directories(std::filesystem::path(disk + name).parent_path());
    std::ofstream(disk + name) << text;
}

static void watch_open(temp_project_t *project) {
    project->write("config/project/zofprj.g", R"({"p_name": "t", "width": 480, "height": 272, "views": []})");
    REQUIRE(project->open());
    disk = project->top + "/disk/";
    screen_open(0, 0);
    zof_func_bar_set_value(1, 0, 1); // before the bar exists: nothing
    CHECK(zof_func_schedule() == 0);
    CHECK(zof_func_schedule() == 0);
}

static void copy_wait() {
    while (zof_dir_copy_async_statue() == 0) {
        usleep(1000);
    }
}

// Percent and result on the progress screen; "-" when it is not shown.
static std::string shown() {
    lv_obj_t *bar = lv_obj_get_child(lv_scr_act(), 0);
    if (!bar || !lv_obj_check_type(bar, &lv_bar_class)) {
        return "-";
    }
    return form("%d|%s", lv_bar_get_value(bar), lv_label_get_text(lv_obj_get_child(lv_scr_act(), 2)));
}

static std::string running() {
    return lv_label_get_text(lv_obj_get_child(lv_scr_act(), 1));
}

static std::string reason() {
    return lv_label_get_text(lv_obj_get_child(lv_scr_act(), 3));
}

static const char begun[] = "0|";

TEST_CASE("without a medium the watch shows nothing and ends after a minute") {
    temp_project_t project;
    watch_open(&project);
    put("U/other/zof_update/a", "not at the top");
    std::filesystem::create_directory_symlink(disk + "U/other", disk + "U/zof_update"); // a link does not count
    screen_step(60500);
    std::filesystem::remove(disk + "U/zof_update");
    put("U/zof_update/a", "too late");
    screen_step(500);
    CHECK(shown() == "-");
    CHECK(str(zof_func_check_res_exist("other/zof_update/", "a")) == project.folder + "../disk/U/other/zof_update/a");
}

TEST_CASE("a data folder that cannot be written is reported once, and the panel goes on") {
    temp_project_t project;
    watch_open(&project);
    put("U/zof_update/a", "new");
    zof_file_fault_set([](const char *what, const char *) -> zof_bool { return str(what) == "create"; });
    const std::string log = printed([] { screen_step(1000); }), part = "it needs a folder that can be written";
    CHECK((contains(log, part) && log.find(part) == log.rfind(part)));
    CHECK(shown() == "-");
    zof_file_fault_set(nullptr);
    screen_step(200);
    CHECK(shown() == begun);
    copy_wait();
}

TEST_CASE("a thread copies a USB disk's data while the bar shows its progress") {
    temp_project_t project;
    disk = project.top + "/disk/";
    put("D/.zof_file.new", "half");
    put("T/.zof_file.new", "half");
    watch_open(&project);
    CHECK((std::filesystem::is_empty(disk + "D") && std::filesystem::is_empty(disk + "T"))); // left by a power cut
    for (const char *name : {"zof_update/a", "zof_update/sub/b", "zof_update/sub/deep/c", "zof_update/d"}) {
        put(std::string("U/") + name, name);
    }
    put("D/d/in the way", "of one file");
    screen_step(200);
    CHECK(shown() == begun);
    copy_wait();
    const std::string log = printed([] { screen_step(200); });
    CHECK(contains(shown(), "100|upgraded,success 3 , fail 1"));
    CHECK(reason() == "d: not put in place: Is a directory");
    CHECK(contains(log, "filenum=1 sucnum=3 sumnum=4 \n\nwait reboot\n\n"));
    CHECK(screen_is_golden("update_done"));
    zof_func_bar_set_value(0x80000000u, 1, 0xFFFFFFFFu); // sums beyond 32 bits
    CHECK(lv_bar_get_value(lv_obj_get_child(lv_scr_act(), 0)) == 50);
}

// Lets the watch find one file on a disk while the card is present.
static void renew(temp_project_t *project, const std::string &from) {
    watch_open(project);
    put(from, "new");
    put("T/x", "the card is there");
    printed([] {
        screen_step(200);
        copy_wait();
        screen_step(400);
    });
}

TEST_CASE("a card's data is copied without a count, and the screen ends with the result") {
    temp_project_t project;
    renew(&project, "T/zof_update/a");
    CHECK(contains(shown(), "100|upgraded,success 1 , fail 0,pls restart power"));
    CHECK(reason().empty());
    CHECK(file_text(disk + "D/a") == "new");
}

TEST_CASE("an update whose names are all skipped ends with the result") {
    temp_project_t project;
    renew(&project, "U/zof_update/.hidden");
    CHECK(contains(shown(), "100|upgraded,success 0 , fail 0,pls restart power"));
}

TEST_CASE("a copy that outlasts the watch still ends with its result, whatever was counted on the disk") {
    static zof_sem_t gate = zof_sem_create(0);
    temp_project_t project;
    watch_open(&project);
    put("U/zof_update/a", "1");
    zof_file_fault_set([](const char *what, const char *) -> zof_bool {
        return std::string(what) == "write" && zof_sem_take(gate, 0) != 0;
    });
    printed([] {
        screen_step(200);
        screen_step(61000);
        put("U/zof_update/b", "2");
    });
    CHECK(shown() == begun);
    for (int i = 0; i < 2; i++) {
        zof_sem_release(gate);
    }
    copy_wait();
    printed([] { screen_step(400); });
    CHECK(contains(shown(), "100|upgraded,success "));
    zof_file_fault_set(nullptr);
}

TEST_CASE("a disk may update the card") {
    temp_project_t project;
    renew(&project, "U/zof_update_t/a");
    CHECK(contains(shown(), "success 1 , fail 0"));
    CHECK(file_text(disk + "T/a") == "new");
}

TEST_CASE("the words of the update screen come from the project's language, in which only the counts are replaced") {
    temp_project_t project;
    project.write("config/languages/en.g", R"({"update_running": "wait %s", "update_done": "%2 of %%1%n failed"})");
    watch_open(&project);
    CHECK(zof_lang_set("en") == 0);
    put("U/zof_update/a", "1");
    screen_step(200);
    CHECK(running() == "wait %s");
    copy_wait();
    printed([] { screen_step(400); });
    CHECK(shown() == "100|0 of %1%n failed");
    CHECK(running() == ""); // it must not ask for power and for a restart at once
}
