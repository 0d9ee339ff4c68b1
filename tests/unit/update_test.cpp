// The copy of update folders: the disk after any failure and power failure, hostile disks, and the log.
#include <sys/stat.h>

#include <algorithm>
#include <map>

#include "eventually.h"
#include "port/zof_host.h"
#include "temp_project.h"

namespace fs = std::filesystem;
using tree_t = std::map<std::string, std::string>; // files by path, links as "-> target"

static tree_t tree_of(const fs::path &top) {
    tree_t tree;
    for (const auto &e : fs::recursive_directory_iterator(top)) {
        const std::string name = fs::relative(e.path(), top).string();
        if (e.is_symlink()) {
            tree[name] = "-> " + fs::read_symlink(e.path()).string();
        } else if (e.is_regular_file()) {
            tree[name] = file_text(e.path());
        }
    }
    return tree;
}

static void tree_make(const fs::path &top, const tree_t &tree) {
    fs::remove_all(top);
    fs::create_directories(top);
    for (const auto &[name, text] : tree) {
        fs::create_directories((top / name).parent_path());
        std::ofstream(top / name, std::ios::binary) << text;
    }
}

static u32 good_count, bad_count;
static void count_file(const char *, u8 ok) {
    good_count -= ok == ZOF_COPY_UNDONE;
    (ok == ZOF_COPY_DONE ? good_count : bad_count)++;
}

// Counts and copies like the update watch.
static void update(const std::string &from, const std::string &into, zof_bool remove = ZOF_TRUE) {
    good_count = bad_count = 0;
    zof_dir_set_schedule_cbfun(count_file);
    zof_dir_copyfile(into.c_str(), (from + "./").c_str(), remove);
    zof_dir_set_schedule_cbfun(nullptr);
}

// Which change of the disk fails. FOR_EVER: all later changes fail too, which simulates a power failure. GONE: the
// source is removed.
enum how_t { NEVER, ONCE, FOR_EVER, GONE };
static struct {
    how_t how;
    u32 at, seen;
    bool no_exchange; // a medium without an atomic exchange of two names
    std::string from;
} fault;

static zof_bool fault_hook(const char *what, const char *) {
    const u32 number = fault.seen++;
    if (fault.how == GONE && number == fault.at) {
        fs::rename(fault.from + "U", fault.from + "gone");
    }
    return (fault.how == ONCE && number == fault.at) || (fault.how == FOR_EVER && number >= fault.at) ||
           (fault.no_exchange && std::string(what) == "exchange");
}

static const std::string big(5000, 'n');
static const tree_t before = {{"a", "old a"},           {"mine", "no update has this"}, {"sub/s1", "old s1"},
                              {"sub/s2", "old s2"},     {"sub/gone", "old gone"},       {"sub/.hidden", "kept"},
                              {"sub/deep/d1", "old d1"}};
static const tree_t fresh = {{"a", "new a"},  {"b", big},          {"sub/s1", "new s1"}, {"sub/s2", big},
                             {"sub/s3", "3"}, {"sub/deep/d1", ""}, {"sub/deep/d2", "2"}, {"new/f", "f"}};

// Checks that every file is wholly old or wholly new, and that there are no others; returns how many are new.
static u32 wholly(tree_t got) {
    u32 renewed = 0;
    tree_t want = before;
    for (const auto &[name, text] : fresh) {
        if (got.count(name) && got.at(name) == text) {
            want[name] = text;
            renewed++;
        }
    }
    want.erase("sub/gone"); // deleted with the old folder
    got.erase("sub/gone");
    CHECK(got == want);
    return renewed;
}

TEST_CASE("a failure or power failure at any change of the disk leaves every file old or new and the counts correct") {
    char memory[] = "/dev/shm/zof_test_XXXXXX"; // where syncing takes no time
    REQUIRE(mkdtemp(memory));
    const std::string top = memory, from = top + "/U/", into = top + "/D/";
    zof_file_fault_set(fault_hook);
    u32 points = 0;
    for (const bool no_exchange : {false, true}) {
        for (const how_t how : {NEVER, ONCE, FOR_EVER, GONE}) {
            for (u32 at = 0; at < (how == NEVER ? 1 : points); at++) {
                CAPTURE(no_exchange);
                CAPTURE((int)how);
                CAPTURE(at);
                tree_make(into, before);
                tree_make(from, fresh);
                fs::remove_all(top + "/gone");
                fault = {how, at, 0, no_exchange, top + "/"};
                printed([&] { update(from, into); });
                points = how == NEVER ? fault.seen : points;
                fault = {};
                printed([&] { zof_dir_copy_repair(into.c_str()); }); // like the next start
                CHECK(good_count == wholly(tree_of(into)));
                CHECK(good_count + bad_count == fresh.size());
                CHECK((how != NEVER || bad_count == 0));
            }
            CHECK(points >= 48);
        }
    }
    zof_file_fault_set(nullptr);
    fs::remove_all(top);
}

TEST_CASE("an update replaces folders as a whole and other files one by one, and keeps what it cannot replace") {
    temp_project_t project;
    const std::string from = project.top + "/U/", into = project.top + "/D/", beside = project.top + "/E";
    tree_t update_tree = fresh;
    update_tree.erase("sub/s1");
    update_tree["sub/s1/in"] = "in"; // a folder replaces a file
    tree_make(from, update_tree);
    tree_t want = before;
    want["new"] = "a file where a folder is due";
    tree_make(into, want);
    fs::create_directories(into + "b"); // a folder in place of a file
    printed([&] { update(from, into); });
    want = update_tree;
    want.erase("new/f");
    want.erase("b");
    want["new"] = "a file where a folder is due";
    want["mine"] = before.at("mine");
    want["sub/.hidden"] = "kept";
    CHECK(tree_of(into) == want);
    CHECK((bad_count == 2 && good_count == 6));
    // Without `remove`, into the folder under its own name.
    tree_make(beside, {{"sub/gone", "stays"}});
    const std::string log = printed([&] { zof_dir_copyfile(beside.c_str(), (from + "sub").c_str(), 0); });
    CHECK(file_text(beside + "/sub/gone") == "stays");
    CHECK((file_text(beside + "/sub/s2") == big));
    CHECK(contains(log, "copy " + from + "sub/s3 to " + beside + "/sub/s3 \nsuccess \n\n"));
    printed([] { CHECK(zof_dir_copyfile(nullptr, "x", 0) == -1); });
    // Copying one file prints a dot per block; a target that cannot be written stays.
    const std::string a = beside + "/a", b = into + "sub/s2";
    CHECK(contains(printed([&] { CHECK(zof_file_copy(a.c_str(), b.c_str(), 2000) == 0); }), "\n.\n.\n.\n succeed"));
    CHECK(contains(printed([&] { CHECK(zof_file_copy(a.c_str(), into.c_str(), 2000) == -1); }), "srcfile=" + into));
    CHECK((file_text(a) == big));
    CHECK(zof_file_copy(a.c_str(), nullptr, 9) == -1);
}

TEST_CASE("a hostile disk writes nothing outside its target, and its count matches the copy") {
    temp_project_t project;
    const std::string from = project.top + "/U/", into = project.top + "/D/", outside = project.top + "/outside/";
    tree_make(from, {{"ok", "1"},
                     {".dot", "x"},
                     {"System Volume Information/x", "x"},
                     {"lead/x", "evil"},
                     {"x\x1b[2J", "x"},
                     {"x\\../secret", "evil"},
                     {"x\\../y\\../secret", "evil"},
                     {"a\\b", "x"}});
    tree_make(into, {{"ok", "0"}});
    tree_make(outside, {{"secret", "s"}});
    fs::create_symlink(outside + "secret", from + "link");
    fs::create_symlink(outside, from + "folder");
    fs::create_symlink(outside, into + "lead"); // links in the target must not lead out either
    fs::create_symlink(outside + "made", into + ".zof_file.new");
    REQUIRE(mkfifo((from + "pipe").c_str(), 0600) == 0);
    std::string deep = from;
    for (int i = 0; i < 4; i++) { // one path is too long on the disk, another only in the target
        deep += std::string(45, (char)('a' + i)) + "/";
        fs::create_directories(deep);
    }
    std::ofstream(deep + std::string(240 - deep.size(), 'f')) << "in";
    std::ofstream(deep + std::string(290 - deep.size(), 'g')) << "too long";
    for (const zof_bool remove : {ZOF_TRUE, ZOF_FALSE}) {
        const std::string target = remove ? into : project.top + "/" + std::string(30, 't') + "/";
        const std::string log = printed([&] { update(from, target, remove); });
        const tree_t got = tree_of(target);
        CHECK(got.count("lead/x") == 1);
        CHECK(got.count("link") + got.count("folder") + got.count("pipe") + got.count(".dot") + got.count("a\\b") == 0);
        CHECK(contains(log, from + "./link: neither file nor folder, skipped"));
        CHECK(contains(log, "a name with a separator or control characters is skipped: a\\b"));
        CHECK(contains(log, "path too long, not copied: "));
        CHECK(!contains(log, "\x1b"));
        CHECK(good_count == (remove ? 3 : 2));
        CHECK(good_count + bad_count == zof_dir_get_fileNum(from.c_str()));
    }
    fs::remove_all(into + "lead");
    fs::create_symlink(outside, into + "lead");
    CHECK(contains(printed([&] { update(from, into, ZOF_FALSE); }), "a link, not copied into"));
    CHECK(contains(printed([&] { zof_dir_remove(into.c_str()); }), "remove dirName = " + into + "lead\n"));
    CHECK(tree_of(outside) == tree_t{{"secret", "s"}});
    CHECK(!fs::exists(project.top + "/secret"));
    CHECK(!fs::exists(fs::symlink_status(into + "lead")));
}

static zof_sem_t gate_reached, gate_open;

TEST_CASE("while the copy thread runs, a second start is refused and its paths are not touched") {
    temp_project_t project;
    const std::string from = project.top + "/U/", into = project.top + "/D/";
    tree_make(from, fresh);
    gate_reached = zof_sem_create(0);
    gate_open = zof_sem_create(0);
    CHECK(zof_sem_trytake(gate_open) != 0);
    zof_file_fault_set([](const char *what, const char *) -> zof_bool {
        if (std::string(what) == "rename") {
            zof_sem_release(gate_reached);
            zof_sem_take(gate_open, 0);
        }
        return ZOF_FALSE;
    });
    CHECK((zof_dir_copy_async_statue() == -1 && zof_dir_copy_async_start() == -1));
    printed([&] {
        CHECK(zof_dir_copy_async(into.c_str(), (from + "./").c_str(), ZOF_TRUE) == 0);
        CHECK(zof_dir_copy_async_start() == 0);
        zof_sem_take(gate_reached, 0);
        CHECK(zof_dir_copy_async_statue() == 0);
        CHECK(zof_dir_copy_async("elsewhere", "other", 0) == -1);
        CHECK(zof_dir_copy_async_start() == -1);
        for (size_t i = 0; i < fresh.size(); i++) {
            zof_sem_release(gate_open);
        }
        CHECK(eventually([] { return zof_dir_copy_async_statue() != 0; }));
        u32 suc = 9, fail = 9;
        zof_dir_copy_get_progress(&suc, &fail);
        CHECK((suc == fresh.size() && fail == 0));
    });
    zof_file_fault_set(nullptr);
    CHECK(tree_of(into) == fresh);
}

TEST_CASE("a folder locked by another copy is not touched, and the log names the process") {
    temp_project_t project;
    const std::string from = project.top + "/U/", into = project.top + "/D/";
    const std::string holder = "in use by process " + std::to_string(getpid());
    tree_make(from, fresh);
    tree_make(into, {{".zof_file.new~1-1", "the holder's"}});
    char text[64];
    const s32 lock = zof_folder_lock(into.c_str(), text, sizeof(text));
    REQUIRE(lock > 0);
    CHECK(contains(printed([&] { update(from, into); }), into + ": " + holder + ", nothing is copied"));
    CHECK((good_count == 0 && bad_count == fresh.size()));
    zof_dir_copy_get_reason(text, sizeof(text)); // for the screen
    CHECK(text == "D/: " + holder + ", nothing is copied");
    CHECK(contains(printed([&] { zof_dir_copy_repair(into.c_str()); }), into + ": " + holder + ", left as it is"));
    CHECK(tree_of(into).size() == 1);
    zof_folder_unlock(lock);
    printed([&] {
        zof_dir_copy_repair(into.c_str());
        update(from, into);
    });
    CHECK(tree_of(into) == fresh);
}

static std::string growing;
static bool grows;

TEST_CASE("a growing source is copied up to its original size, and a shrinking one is not copied") {
    temp_project_t project;
    const std::string from = project.top + "/U/", into = project.top + "/D/";
    growing = from + "log";
    tree_make(from, {{"log", big}});
    zof_file_fault_set([](const char *what, const char *) -> zof_bool {
        if (std::string(what) == "write") {
            fs::resize_file(growing, grows ? 3 * big.size() : big.size() / 2);
        }
        return ZOF_FALSE;
    });
    for (const bool longer : {true, false}) {
        grows = longer;
        printed([&] { update(from, into); });
        CHECK((file_text(into + "log") == big && good_count == longer));
    }
    zof_file_fault_set(nullptr);
}
