// The work path and the versions that the project file tells.
#include "temp_project.h"
#include "zof_test.h"

#include <filesystem>

namespace fs = std::filesystem;

TEST_CASE("without a project there is no version, and the banner says none") {
    temp_project_t project;
    fs::create_directories(project.top + "/a/b");
    fs::current_path(project.top + "/a/b");
    fs::rename(project.folder, project.top + "/elsewhere");
    CHECK(zof_drv_get_prj_path() == nullptr);
    CHECK(contains(printed(zof_drv_set_prj_path), "No work path found\n"));
    CHECK(zof_prj_get_cur() == nullptr);
    CHECK(zof_user_app_version() == nullptr);
    CHECK(contains(printed(zof_ver_printf), "fw:none\nsdk:1.4.12-251024090648\n"));
}

TEST_CASE("the work path is the first place with a project that can be written") {
    temp_project_t project;
    fs::create_directories(project.top + "/a/b");
    fs::current_path(project.top + "/a/b");
    project.write("config/project/zofprj.g", R"({"app_ver": "7", "comp_time": "now", "version": 3})");
    CHECK(std::string(zof_drv_get_prj_path()) == "../.././res/");

    // A version that is no text counts as none, and is looked for again.
    CHECK(zof_fw_get_version() == nullptr);
    project.write("config/project/zofprj.g", R"({"app_ver": "7", "comp_time": "now", "version": )");
    CHECK(contains(printed([] { CHECK(zof_fw_get_version() == nullptr); }), "zofprj.g:1:49: parse error"));
    project.write("config/project/zofprj.g", R"({"app_ver": "7", "comp_time": "now", "version": "1.2"})");
    const char *version = zof_fw_get_version();
    CHECK(std::string(version) == "1.2");
    fs::remove(project.path("config/project/zofprj.g"));
    CHECK(zof_fw_get_version() == version);

    project.write("config/project/zofprj.g", R"({"app_ver": "7", "comp_time": "now"})");
    CHECK(contains(printed(zof_drv_set_prj_path), "find work path , ../.././res/\n"));
    CHECK(std::string(zof_user_app_version()) == "7");
    CHECK(std::string(zof_user_app_comp_time()) == "now");

    // A project here hides the one above; one that cannot be written does not. (Root may write anything.)
    fs::create_directories("res/config/project");
    fs::copy(project.path("config/project/zofprj.g"), "res/config/project/zofprj.g");
    fs::rename(project.folder, project.top + "/elsewhere");
    CHECK(std::string(zof_drv_get_prj_path()) == "././res/");
    if (geteuid() != 0) {
        fs::permissions("res/config/project/zofprj.g", fs::perms::owner_read);
        CHECK(zof_drv_get_prj_path() == nullptr);
    }
}
