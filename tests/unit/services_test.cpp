// Services of the host: the folder walk.
#include "temp_project.h"
#include "zof_test.h"

#include <map>

static std::map<std::string, zof_dirent_t> walk(const std::string &path) {
    std::map<std::string, zof_dirent_t> found;
    zof_dir_t *dir = zof_opendir(path.c_str());
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        found[entry->name] = {entry->is_dir, entry->size, nullptr};
    }
    zof_closedir(dir);
    return found;
}

TEST_CASE("a folder's walk gives files and folders, whether or not its path ends in a separator") {
    temp_project_t project;
    project.write("image/a.png", std::string(300, 'x'));
    project.write("image/deep/b.png", "");
    const std::string path = project.folder + "image";
    for (const std::string &form : {path, path + "/"}) {
        auto found = walk(form);
        CHECK(found.size() == 4); // the dots are there too
        REQUIRE(found.count("a.png"));
        CHECK(found["a.png"].size == 300);
        CHECK(found["deep"].is_dir == 1);
    }
    CHECK(zof_opendir((path + "/a.png").c_str()) == nullptr);
    CHECK(zof_opendir((path + "/none").c_str()) == nullptr);
}
