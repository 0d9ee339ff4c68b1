// What every host layer keeps of the contracts in port/zof_host.h: Linux's, Windows', and the null host's.
#include "port/zof_host.h"
#include "temp_project.h"

#include <set>
#include <thread>

static bool is_null_host() {
    return strcmp(zof_system_get_name(), "null") == 0;
}

static std::set<std::string> entries(const std::string &folder) {
    std::set<std::string> names;
    zof_dir_t *walk = zof_opendir(folder.c_str());
    REQUIRE(walk);
    while (const zof_dirent_t *entry = zof_readdir(walk)) {
        names.insert(std::string(entry->name) + (entry->is_dir ? "/" : "=" + std::to_string(entry->size)));
    }
    zof_closedir(walk);
    return names;
}

TEST_CASE("host: files are created, replaced, listed, moved and removed, whatever letters their names have") {
    temp_project_t project;
    const std::string folder = project.path("sub \xC3\xBC\xE2\x82\xAC"),
                      file = folder + "/a \xC3\x9F\xF0\x9F\x94\x8C.txt", none = folder + "/none";
    CHECK((zof_mkdir(folder.c_str()) == 0 && zof_mkdir(folder.c_str()) == 1 && zof_mkdir((none + "/b").c_str()) == -1));
    CHECK((zof_file_write(file.c_str(), "hello", 5) == 0 && zof_file_write(file.c_str(), "again!", 6) == 0));
    CHECK((zof_file_size(file.c_str()) == 6 && zof_file_size(none.c_str()) == -1));
    CHECK((zof_file_create(file.c_str()) == nullptr && zof_file_read_open(folder.c_str()) == nullptr));
    CHECK((zof_file_write_open(folder.c_str(), ZOF_FALSE) == nullptr && zof_opendir(file.c_str()) == nullptr));
    for (const auto &[path, kind] :
         {std::pair(file, ZOF_FILE_PLAIN), {folder, ZOF_FILE_FOLDER}, {none, ZOF_FILE_NONE}}) {
        CHECK(zof_file_kind(path.c_str()) == (u32)kind);
    }
    CHECK(entries(folder) == std::set<std::string>{"./", "../", file.substr(folder.size() + 1) + "=6"});
    CHECK(entries(folder + "/") == entries(folder));

    zof_file_stamp_t before, after;
    CHECK((zof_file_stamp(file.c_str(), &before) == 0 && before.size == 6));
    FILE *f = zof_file_write_open(file.c_str(), ZOF_TRUE);
    REQUIRE(f);
    CHECK((fseek(f, 0, SEEK_END) == 0 && zof_file_put(f, "\n+", 2) == 0 && zof_file_finish(f) == 0));
    CHECK((zof_file_stamp(file.c_str(), &after) == 0 && memcmp(&before, &after, sizeof(after)) != 0));
    u32 size = 0;
    const char *why = nullptr;
    u8 *text = zof_file_read_all(file.c_str(), 100, &size, &why);
    CHECK(std::string((const char *)text, size) == "again!\n+");
    zof_free(text);

    const std::string other = folder + "/b.txt";
    CHECK((zof_file_write(other.c_str(), "old", 3) == 0 && zof_rename(file.c_str(), other.c_str()) == 0));
    CHECK((zof_file_size(other.c_str()) == 8 && zof_file_kind(file.c_str()) == ZOF_FILE_NONE));
    CHECK(zof_file_remove(folder.c_str()) == -1); // it is not empty
    CHECK((zof_file_remove(other.c_str()) == 0 && zof_file_remove(folder.c_str()) == 0));
    CHECK((zof_file_read_open(other.c_str()) == nullptr && *zof_file_error()));
}

TEST_CASE("host: a path leads to one real place, from whatever folder it is named") {
    temp_project_t project;
    char real[512], again[512], program[512];
    project.write("sub/a", "x");
    REQUIRE(zof_file_real_path(project.path("sub/../sub/./a").c_str(), real, sizeof(real)) == 0);
    CHECK((zof_file_is_absolute(real) && !zof_file_is_absolute("sub/a") && !zof_file_is_absolute("")));
    CHECK((zof_file_real_path(real, again, sizeof(again)) == 0 && std::string(real) == again));
    CHECK(std::string(real).ends_with("/sub/a"));
    CHECK(zof_file_real_path(project.path("none").c_str(), again, sizeof(again)) == -1);
    if (zof_program_path(program, sizeof(program)) == 0) {
        CHECK((zof_file_kind(program) == ZOF_FILE_PLAIN && std::string(zof_program_name()) == "host_test"));
    }
    CHECK((zof_host_process_runs(zof_host_process_id()) && (is_null_host() || !zof_host_process_runs(0x7FFFFFF0))));
}

TEST_CASE("host: a folder is locked against all others until it is unlocked") {
    temp_project_t project;
    char holder[64];
    if (is_null_host()) {
        return;
    }
    const s32 lock = zof_folder_lock(project.folder.c_str(), holder, sizeof(holder));
    REQUIRE(lock > 0);
    CHECK((zof_folder_lock(project.folder.c_str(), holder, sizeof(holder)) == 0 && *holder));
    zof_folder_unlock(lock);
    const s32 again = zof_folder_lock(project.folder.c_str(), holder, sizeof(holder));
    CHECK(again > 0);
    zof_folder_unlock(again);
    CHECK(zof_folder_lock(project.path("none").c_str(), holder, sizeof(holder)) == -1);
}

TEST_CASE("host: the clock runs, sleeps last, and the date is a date") {
    const u64 start = zof_host_time_ms();
    zof_host_sleep(30);
    CHECK(zof_host_time_ms() - start >= 29);
    zof_rtc_stamp_t now;
    REQUIRE(win_rtc_get_stamp(&now) == 0);
    CHECK((now.time.year >= 2024 && now.time.month - 1u < 12 && now.time.day - 1u < 31 && now.ms < 1000));
    CHECK((now.zone >= -12 * 60 && now.zone <= 14 * 60));
}
