// The list of undo of `zof design` over crashes, restarts, full disks and other programs.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "design_files.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "temp_project.h"
#include "zof_test.h"

// The process ends at a step of writing, or the disk is full from there on.
static int steps_left = -1;
static bool disk_full, folder_closed;

static bool step_fails() {
    return steps_left >= 0 && steps_left-- == 0;
}

extern "C" {
s32 __real_zof_rename(const char *from, const char *to);
s32 __real_zof_file_put(FILE *f, const void *data, size_t size);

s32 __wrap_zof_rename(const char *from, const char *to) {
    if (step_fails()) {
        _exit(9);
    }
    return folder_closed && std::string(to).ends_with(".g") ? -1 : __real_zof_rename(from, to);
}

s32 __wrap_zof_file_put(FILE *f, const void *data, size_t size) {
    const bool fails = step_fails();
    const s32 result = __real_zof_file_put(f, data, fails || disk_full ? size / 2 : size);
    if (fails) {
        fflush(f);
        _exit(9);
    }
    return disk_full ? -1 : result;
}
}

static const char home[] =
    "{\"view\": {\"v_id\": 0}, \"controls\": [\n  {\"type\": 1, \"property\": {\"pub_t\": {\"id\": 1}}}\n]}\n";

struct store_t {
    temp_project_t project;
    design_files_t *files = nullptr;
    std::string error;
    s64 now = 1000;

    store_t() {
        for (const char *name : {"a", "b", "c", "d", "e", "f"}) {
            project.write(file_of(name), home);
        }
        open();
    }
    ~store_t() {
        design_files_close(files);
    }
    store_t(const store_t &) = delete;
    store_t &operator=(const store_t &) = delete;

    static std::string file_of(const std::string &name) {
        return "config/view/" + name + ".g";
    }
    void open() {
        design_files_close(files);
        files = design_files_open(project.folder, project.top + "/state", &error);
        REQUIRE(files);
    }
    std::string text(const char *name) const {
        return file_text(project.path(file_of(name)));
    }
    static std::string numbered(int number) {
        return changed("\"v_id\": 0", "\"v_id\": " + std::to_string(number));
    }
    static std::string changed(const std::string &before, const std::string &after) {
        std::string out = home;
        return out.replace(out.find(before), before.size(), after);
    }
    // Sets a number in several files at once.
    const design_gesture_t *set(const std::string &names, int number, const char *path = "view.v_id") {
        cJSON *edits = cJSON_CreateArray();
        for (const char name : names) {
            cJSON *edit = cJSON_CreateObject();
            cJSON_AddStringToObject(edit, "file", file_of(std::string(1, name)).c_str());
            cJSON_AddStringToObject(edit, "path", path);
            cJSON_AddNumberToObject(edit, "value", number);
            cJSON_AddItemToArray(edits, edit);
        }
        const design_gesture_t *gesture = design_files_edit(files, edits, "Set", "", now += 1000, &error);
        cJSON_Delete(edits);
        return gesture;
    }
    bool undo() {
        return design_files_undo(files, &error) != nullptr;
    }
    std::vector<u32> look() {
        return design_files_look(files, now += 1000);
    }
};

TEST_CASE("a process that ends at any step of writing leaves gestures whole, and the next one can undo them") {
    int crashes = 0;
    for (int step = 0;; step++) {
        store_t store;
        const pid_t child = fork();
        if (child == 0) {
            steps_left = step;
            store.set("ab", 1);
            store.set("a", 2);
            store.set("ab", 3);
            store.undo();
            store.undo();
            store.set("abc", 4);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        design_files_close(store.files); // it knows nothing of what the child did
        store.files = nullptr;
        store.open();
        CAPTURE(step);
        static const struct {
            int a, b, c;
        } states[] = {{0, 0, 0}, {1, 1, 0}, {2, 1, 0}, {3, 3, 0}, {4, 4, 4}};
        CHECK(std::any_of(std::begin(states), std::end(states), [&store](const auto &state) {
            return store.text("a") == store_t::numbered(state.a) && store.text("b") == store_t::numbered(state.b) &&
                   store.text("c") == store_t::numbered(state.c);
        }));
        while (store.undo()) {
        }
        CHECK(store.error == "there is nothing to undo");
        CHECK(store.text("a") + store.text("b") + store.text("c") == std::string(home) + home + home);
        for (const auto &entry : std::filesystem::directory_iterator(store.project.path("config/view"))) {
            CHECK(entry.path().filename().string()[0] != '.');
        }
        if (WEXITSTATUS(status) == 0) {
            break;
        }
        crashes++;
    }
    CHECK(crashes > 20);
}

TEST_CASE("undo and redo go on after a restart, and end where files were changed meanwhile") {
    store_t store;
    for (int i = 1; i <= 5; i++) {
        REQUIRE(store.set("ab", i));
    }
    CHECK(store.undo());
    CHECK(store.undo());
    store.open();
    CHECK(store.text("a") == store_t::numbered(3));
    CHECK(design_files_redo(store.files, &store.error));
    CHECK(store.text("b") == store_t::numbered(4));
    store.open();
    for (int i = 0; i < 4; i++) {
        CHECK(store.undo());
    }
    CHECK(store.text("a") == home);
    CHECK(design_files_redo(store.files, &store.error));
    store.project.write("config/view/c.g", std::string("\0\1\xFF", 3));
    CHECK(store.look().size() == 1);
    CHECK(store.set("d", 1));
    store.open();
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.text("c") == home);

    store.project.write("config/view/b.g", "{}");
    store.open();
    CHECK(!store.undo());
    CHECK(contains(store.error, "changed"));
    CHECK(store.text("a") == store_t::numbered(1));
    CHECK(store.text("b") == "{}");
    CHECK(store.set("a", 7));
    std::ofstream(store.project.top + "/state/journal", std::ios::app)
        << "{\"step\": \"undo\", \"number\": 1e99}\n{]\n";
    store.open();
    CHECK(!store.undo());
    CHECK(store.text("a") == store_t::numbered(7));
}

TEST_CASE("a gesture is taken back alone, unless a later one depends on it") {
    store_t store;
    const auto take = [&store](u32 number) {
        return design_files_take_back(store.files, number, store.now += 1000, &store.error) != nullptr;
    };
    const u32 first = store.set("ab", 1000)->number;
    const u32 id = store.set("a", 77, "controls[0].property.pub_t.id")->number;
    const u32 width = store.set("a", 5, "controls[0].property.pub_t.size.width")->number;
    const u32 height = store.set("a", 6, "controls[0].property.pub_t.size.height")->number;
    CHECK(!take(width)); // the height stands in the object that the width made
    CHECK(contains(store.error, "depends"));
    CHECK(!take(height + 1));
    const std::string all = store.text("a");
    CHECK(take(first));
    CHECK(store.text("b") == home);
    std::string expected = all;
    CHECK(store.text("a") == expected.replace(expected.find("1000"), 4, "0"));
    CHECK(take(id));
    CHECK(store.text("a") == expected.replace(expected.find("77"), 2, "1"));
    CHECK(take(height));
    CHECK(!take(first));
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.text("a") == all);
    store.open();
    CHECK(take(id));
}

TEST_CASE("edits wait in memory and in the journal while files cannot be written") {
    store_t store;
    std::filesystem::permissions(store.project.path("config/view/a.g"), std::filesystem::perms(0640));
    disk_full = true;
    CHECK(store.set("ab", 1));
    CHECK(!design_files_error(store.files).empty());
    CHECK(store.text("a") == home);
    CHECK(*design_files_text(store.files, "config/view/a.g", nullptr) == store_t::numbered(1));
    disk_full = false;
    CHECK(design_files_save(store.files).empty());
    CHECK(store.text("b") == store_t::numbered(1));
    CHECK(
        (std::filesystem::status(store.project.path("config/view/a.g")).permissions() == std::filesystem::perms(0640)));
    CHECK(store.undo());

    folder_closed = true;
    CHECK(store.set("ab", 2));
    CHECK(store.set("a", 3));
    CHECK(store.text("a") == home);
    store.open();
    CHECK(!design_files_error(store.files).empty());
    CHECK(store.set("a", 4));
    folder_closed = false;
    store.open();
    CHECK(store.text("a") + store.text("b") == store_t::numbered(4) + store_t::numbered(2));
    for (int i = 0; i < 3; i++) {
        CHECK(store.undo());
    }
    CHECK(store.text("a") + store.text("b") == std::string(home) + home);
}

TEST_CASE("changes of other programs are gestures, and edits are applied again unless they changed the same value") {
    store_t store;
    const char *const pub = "controls[0].property.pub_t.id";
    store.project.write("config/view/a.g", store_t::changed("\"type\": 1", "\"type\": 20"));
    CHECK(store.look() == std::vector<u32>{1});
    CHECK(store.look().empty());
    CHECK(design_files_gestures(store.files)[0].elsewhere);
    CHECK(store.set("a", 2));
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.text("a") == home);
    CHECK(design_files_redo(store.files, &store.error));

    // An edit that comes before the change was noticed.
    store.project.write("config/view/b.g", store_t::changed("\"id\": 1", "\"id\": 12"));
    CHECK(!store.set("b", 13, pub));
    CHECK(contains(store.error, "is 12 now, and was 1"));
    store.project.write("config/view/b.g", store_t::changed("\"id\": 1", "\"id\": 14"));
    CHECK(store.set("b", 5));
    CHECK(contains(store.text("b"), "\"v_id\": 5"));
    CHECK(contains(store.text("b"), "\"id\": 14"));
    CHECK(store.look().size() == 2);
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.undo());
    CHECK(store.text("b") == home);

    // While edits wait, other values of the file are taken over; for the same value, undo brings the edit back.
    disk_full = true;
    CHECK(store.set("c", 6));
    disk_full = false;
    store.project.write("config/view/c.g", store_t::changed("\"id\": 1", "\"id\": 15"));
    store.look();
    CHECK(contains(store.text("c"), "\"v_id\": 6"));
    CHECK(contains(store.text("c"), "\"id\": 15"));
    disk_full = true;
    CHECK(store.set("d", 7));
    disk_full = false;
    store.project.write("config/view/d.g", store_t::numbered(8));
    store.look();
    CHECK(store.text("d") == store_t::numbered(8));
    CHECK(store.undo());
    CHECK(store.text("d") == store_t::numbered(7));

    // New, deleted and other files; many at once are a new beginning.
    store.project.write("config/view/new.g", home);
    store.project.write("image/x.png", "x");
    CHECK(store.look().size() == 2);
    CHECK(store.undo());
    CHECK(!std::filesystem::exists(store.project.path("config/view/new.g")));
    std::filesystem::remove(store.project.path("config/view/f.g"));
    CHECK(store.look().size() == 1);
    CHECK(store.undo());
    CHECK(store.text("f") == home);
    for (const char *name : {"a", "b", "c", "d", "e", "f"}) {
        store.project.write(store_t::file_of(name), store_t::numbered(9));
    }
    CHECK(store.look() == std::vector<u32>{0});
    CHECK(!store.undo());
    CHECK(store.set("e", 10));
    CHECK(store.undo());
    CHECK(store.text("e") == store_t::numbered(9));
}
