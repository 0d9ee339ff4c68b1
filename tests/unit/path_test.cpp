// Resource paths, drives, files, and folders.
#include <sys/stat.h>

#include "temp_project.h"

namespace fs = std::filesystem;

TEST_CASE("a path that is too long is refused and logged, never truncated") {
    temp_project_t project;
    CHECK(zof_res_path_check("a.png", "image/") == nullptr);
    REQUIRE(project.open());
    CHECK(str(zof_res_path_check(zof_res_file_path("x.png", nullptr, nullptr), "image/")) == // in its own buffer
          project.path("image/x.png"));
    std::string fits(500 - project.folder.size(), 'n'), name(47, 'n'), theme(41, 'n');
    CHECK(str(zof_res_get_prjfile_path(nullptr, fits.c_str())) == project.folder + fits);
    CHECK(str(zof_res_get_g_file_path("d/", name.c_str())) == project.path("d/" + name + ".g"));
    CHECK(zof_res_get_theme_path(theme.c_str(), ZOF_CTRL_LABEL) != nullptr);
    std::string log = printed([&] {
        CHECK(zof_res_get_prjfile_path("x", fits.c_str()) == nullptr);
        CHECK(zof_res_get_g_file_path("d/", (name + "n").c_str()) == nullptr);
        CHECK(zof_res_get_theme_path((theme + "n").c_str(), ZOF_CTRL_LABEL) == nullptr);
        CHECK(zof_fs_get_real_path(("D:" + fits).c_str()) == nullptr);
        CHECK(zof_fs_open(("P:" + fits + fits).c_str(), LV_FS_MODE_RD) == nullptr);
        CHECK(zof_res_set_path_cache(20) == 0);
        CHECK(zof_res_get_prjfile_path("image/", "much too long for this") == nullptr);
    });
    CHECK(contains(log, "path too long: "));
    CHECK(contains(log, "name too long: nnn"));
}

TEST_CASE("a drive letter names a folder beside the project, which is created at first use") {
    lv_init();
    temp_project_t project;
    CHECK(str(zof_fs_get_real_path("D:a.png")) == "D:a.png"); // no project yet
    REQUIRE(project.open());
    for (std::string drive : {"D", "E", "T", "U"}) {
        CHECK(str(zof_res_path_check((drive + ":a/b.png").c_str(), "image/")) ==
              project.folder + "../disk/" + drive + "/a/b.png");
        CHECK(fs::is_empty(project.top + "/disk/" + drive));
    }
    CHECK(str(zof_fs_get_real_path("P:x")) == project.folder + "/../x");
    CHECK(
        contains(printed([] { CHECK(zof_res_path_check("X:a.png", "image/") == nullptr); }), "X:a.png: no such drive"));
    // A plain path that begins with a drive letter, in the buffer used for the base of a drive.
    CHECK(str(zof_fs_get_real_path(zof_res_file_path("D", "isk/", "x"))) == "Disk/x");

    lv_fs_file_t *f = zof_fs_open("D:new.bin", LV_FS_MODE_WR);
    CHECK((zof_fs_write(f, "0123456789", 10) == 10 && zof_fs_close(f) == 0));
    f = zof_fs_open((project.folder + "../disk/D/new.bin").c_str(), LV_FS_MODE_RD);
    REQUIRE(f);
    char text[256] = {};
    CHECK((zof_fs_seek(f, 4, LV_FS_SEEK_SET) == 0 && zof_fs_read(f, text, sizeof text) == 6));
    CHECK((str(text) == "456789" && zof_fs_tell(f) == 10));
    zof_fs_close(f);
    lv_fs_dir_t *dir = zof_fs_dir_open("D:");
    CHECK((zof_fs_dir_read(dir, text) == 0 && str(text) == "new.bin" && zof_fs_dir_close(dir) == 0));
    CHECK((zof_fs_open("D:none.bin", LV_FS_MODE_RD) == nullptr && zof_fs_dir_open("D:none/") == nullptr));
    CHECK((zof_fs_read(nullptr, text, 1) == -1 && zof_fs_close(nullptr) == 0));
}

TEST_CASE("starting a project removes temporary files of killed processes and keeps those of running ones") {
    temp_project_t project;
    const std::string folder = project.path("state/"), init = ".zof_file.new~1-5";
    const std::vector<std::string> names = {".zof_file.new", ".zof_file.new~4999999-1", init, ".zof_file.newer"};
    for (const std::string &name : names) {
        project.write("state/" + name, "half");
    }
    setenv("ZOF_STATE", project.path("state").c_str(), 1);
    lv_init();
    REQUIRE((project.open() && zof_prj_create(nullptr, 0) == 0));
    CHECK((!fs::exists(folder + ".zof_file.new") && !fs::exists(folder + ".zof_file.new~4999999-1")));
    CHECK((fs::exists(folder + init) && fs::exists(folder + ".zof_file.newer"))); // process 1 always runs
}

TEST_CASE("a file is written whole or not at all, and its suffix decides its kind") {
    temp_project_t project;
    std::string path = project.path("a/b.txt");
    CHECK(zof_file_write(path.c_str(), "x", 1) == -1);
    project.write("a/b.txt", "old");
    CHECK(zof_file_write(path.c_str(), "newer", 5) == 0);
    char text[16] = {};
    CHECK(get_file_content(path.c_str(), text) == 5);
    CHECK(str(text) == "newer");
    // A link with the name of a temporary file is not followed: the name is different each time.
    project.write("outside", "secret");
    for (const char *planted : {"a/b.txt.new", "a/.zof_file.new"}) {
        fs::create_symlink(project.path("outside"), project.path(planted));
    }
    CHECK(zof_file_write(path.c_str(), "newest", 6) == 0);
    CHECK(file_text(project.path("outside")) == "secret");
    CHECK((file_text(path) == "newest" && !fs::is_symlink(path)));
    fs::remove(project.path("a/b.txt.new"));
    fs::remove(project.path("a/.zof_file.new"));
    // A folder has the name of the file: nothing changes and no temporary file is left.
    fs::create_directories(project.path("a/folder/inside"));
    CHECK(zof_file_write(project.path("a/folder").c_str(), "x", 1) == -1);
    CHECK(std::distance(fs::directory_iterator(project.path("a")), fs::directory_iterator()) == 2);
    CHECK((!FileExist(project.path("a").c_str()) && !PathExist(path.c_str())));
    CHECK((zof_file_get_size(nullptr) == -1 && get_file_content("/none/at/all", text) == 0));
    CHECK((IsBinFile("b.c.BIN") && IsTTFFile("a.ttf") && IsJPGFile("a.JPG")));
    CHECK((IsPNGFile("a.Png") && IsMp3File("b.MP3")));
    for (const char *no : {(const char *)nullptr, "", "png", "./dir/name", "a.pngx", "a.pn", "a.png.x"}) {
        CHECK(!IsPNGFile(no));
    }
}

// Without the check each of these waits for a writer forever.
TEST_CASE("a pipe or a device in place of a file is refused immediately") {
    lv_init();
    temp_project_t project;
    const std::string pipe = project.path("config/project/pipe"), link = project.path("link");
    REQUIRE(mkfifo(pipe.c_str(), 0600) == 0);
    fs::create_symlink("config/project/zofprj.g", link);
    char text[256] = {};
    for (const char *path : {pipe.c_str(), "/dev/tty", project.folder.c_str(), "/none/at/all", (const char *)nullptr}) {
        CAPTURE(str(path));
        CHECK(!FileExist(path));
        CHECK(get_file_content(path, text) == 0);
        CHECK(GetJsonFile(path) == nullptr);
        CHECK((zof_file_read_open(path) == nullptr && zof_file_write_open(path, ZOF_FALSE) == nullptr));
        for (const int mode : {LV_FS_MODE_RD + 0, LV_FS_MODE_WR + 0, LV_FS_MODE_RD | LV_FS_MODE_WR}) {
            CHECK(zof_fs_open(path, (lv_fs_mode_t)mode) == nullptr);
        }
    }
    CHECK((FileExist(link.c_str()) && get_file_content(link.c_str(), text) > 0)); // links to files are followed
    fs::remove(project.path("config/project/zofprj.g"));
    REQUIRE(mkfifo(project.path("config/project/zofprj.g").c_str(), 0600) == 0);
    printed([&] { CHECK(project.open() == nullptr); });
}

TEST_CASE("names from projects and hosts stay inside the project and its drives unless the project allows more") {
    temp_project_t project;
    const std::string outside = project.top + "/outside", deep = std::string("../") + "../../../../../../../etc/passwd";
    fs::create_directories(outside);
    std::ofstream(outside + "/a.png") << "x";
    project.write("font/own.ttf", "x");
    fs::create_directories(project.top + "/disk/T");
    fs::create_directories(project.path("image"));
    fs::create_symlink(outside, project.path("image/folder"));
    fs::create_symlink(outside + "/a.png", project.path("image/file.png"));
    fs::create_symlink("../font/own.ttf", project.path("image/inside.png"));
    fs::create_symlink(outside, project.top + "/disk/U"); // as for a mounted medium
    fs::create_symlink("/etc", project.top + "/disk/T/etc");
    const struct {
        const char *name;
        bool passes, passes_allowed;
    } rows[] = {
        {"a/../b.png", true, true},      {"../font/own.ttf", true, true},
        {"inside.png", true, true},      {"..\\x", true, true},
        {"../../x", false, true},        {"a/../../../x", false, true},
        {"..\\..\\x", false, true},      {deep.c_str(), false, true},
        {"folder/a.png", false, true},   {"file.png", false, true},
        {"folder/none.png", true, true}, {"U:a.png", true, true},
        {"T:none", true, true},          {"T:../U/a.png", false, true},
        {"T:etc/passwd", false, true},   {"P:res/font/own.ttf", true, true},
        {"P:../x", false, true},         {"X:a", false, true},
        {"\x05:x", false, false},        {"a\x1b[2J.png", false, false},
        {"D:a\nb", false, false},
    };
    REQUIRE(project.open());
    for (const bool allowed : {false, true}) {
        zof_prj_get_cur()->attr->allow_outside = allowed;
        for (const auto &row : rows) {
            CAPTURE(row.name);
            CAPTURE(allowed);
            const char *path = nullptr;
            const std::string log = printed([&] { path = zof_res_path_check(row.name, "image/"); });
            CHECK((path != nullptr) == (allowed ? row.passes_allowed : row.passes));
            CHECK(log.empty() == (path != nullptr));
        }
    }
    zof_prj_get_cur()->attr->allow_outside = 0;
    printed([] {
        CHECK(zof_lang_set("../../../x") == -1);
        CHECK(zof_res_get_theme_path("../../../x", ZOF_CTRL_LABEL) == nullptr);
    });
}
