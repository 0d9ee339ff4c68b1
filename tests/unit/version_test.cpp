// The work path and the versions in the project file.
#include "temp_project.h"

namespace fs = std::filesystem;

TEST_CASE("the work path is the first place with a project, and the versions are those of the project") {
    temp_project_t project;
    const char *file = "config/project/zofprj.g";
    fs::create_directories(project.top + "/a/b");
    fs::current_path(project.top + "/a/b");
    CHECK(contains(printed(zof_ver_printf), "fw:none\nsdk:1.4.12-251024090648\n"));
    // A version that is not a text counts as missing, and is read again at the next call.
    project.write(file, R"({"app_ver": "7", "comp_time": "now", "version": 3})");
    CHECK(zof_fw_get_version() == nullptr);
    project.write(file, R"({"version": )");
    const std::string faults = printed([] {
        zof_ver_printf();
        zof_drv_set_prj_path();
    });
    CHECK(contains(faults, "sys:" + str(zof_system_get_name()) + "\nfw:none\n"));
    const size_t first =
        faults.find("zofprj.g:1:13: expected a value, found the end"); // reported only when the project is opened
    CHECK((first != std::string::npos && faults.find("expected a") == faults.rfind("expected a")));
    project.write(file, R"({"app_ver": "7", "comp_time": "now", "version": "1.2", "views": []})");
    const char *version = zof_fw_get_version();
    CHECK(str(version) == "1.2");
    CHECK(zof_user_app_version() == nullptr);
    CHECK(contains(printed(zof_drv_set_prj_path), "find work path , ../.././res/\n"));
    CHECK(str(zof_user_app_version()) + str(zof_user_app_comp_time()) == "7now");
    // A project here hides the one above.
    fs::copy(project.top + "/res", "res", fs::copy_options::recursive);
    fs::remove_all(project.folder);
    CHECK(zof_fw_get_version() == version);
    CHECK(str(zof_drv_get_prj_path()) == "././res/");
    fs::current_path("/"); // the current folder cannot be removed on every system
}
