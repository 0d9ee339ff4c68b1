// Writing files: beside and renamed, over what a link leads to, with the mode that the file had.
#include <cstring>
#include <filesystem>

#include "design_journal.h"
#include "design_text.h"
#include "drv/zof_drv.h"

namespace fs = std::filesystem;

// Makes the folders of a new file. One that cannot be made fails with the file.
static void folders_make(const std::string &path) {
    const size_t slash = path.rfind('/');
    const std::string folder = path.substr(0, slash);
    if (slash != std::string::npos && slash > 0 && zof_file_kind((folder + "/").c_str()) == ZOF_FILE_NONE) {
        folders_make(folder);
        zof_mkdir(folder.c_str());
    }
}

// Writes the file beside, and sets the stamp that it has once it is renamed.
static bool beside_write(const std::string &beside, const std::string &path, const std::string &text,
                         zof_file_stamp_t *stamp) {
    FILE *f = zof_file_create(beside.c_str());
    if (!f) {
        return false;
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::is_regular_file(status)) {
        fs::permissions(beside, status.permissions(), ignored);
    }
    const bool put = zof_file_put(f, text.data(), text.size()) == 0;
    const bool finished = zof_file_finish(f) == 0;
    return put && finished && zof_file_stamp(beside.c_str(), stamp) == 0 &&
           zof_rename(beside.c_str(), path.c_str()) == 0;
}

// Returns why a text is not written; empty on success.
static std::string text_write(const std::string &path, const std::string &text, zof_file_stamp_t *stamp) {
    char beside[1100];
    if (zof_file_temp_name(beside, sizeof(beside), path.c_str(), ZOF_FILE_TEMP) != 0) {
        return "the path is too long";
    }
    folders_make(path);
    if (beside_write(beside, path, text, stamp)) {
        return "";
    }
    std::string why = zof_file_error();
    zof_file_remove(beside);
    return why;
}

static std::string file_remove(const std::string &path, zof_file_stamp_t *stamp) {
    *stamp = {};
    return zof_file_remove(path.c_str()) == 0 || zof_file_kind(path.c_str()) == ZOF_FILE_NONE ? "" : zof_file_error();
}

// Returns why a file is not written; empty on success.
static std::string file_write(design_files_t *files, const std::string &file, design_file_t *entry) {
    const std::string path = design_file_path(files, file);
    if (path.empty()) {
        return file + " is not in the project's folder any more";
    }
    if (design_file_changed(files, file, entry)) {
        return file + " was changed by another program";
    }
    zof_file_stamp_t stamp;
    const std::string why = entry->doc.exists ? text_write(path, entry->doc.text, &stamp) : file_remove(path, &stamp);
    if (!why.empty()) {
        return file + ": " + why;
    }
    entry->stamp = stamp;
    entry->unsaved = false;
    entry->disk = {};
    return "";
}

void design_files_write(design_files_t *files) {
    bool written = false;
    files->error.clear();
    for (auto &[file, entry] : files->files) {
        if (entry.unsaved) {
            const std::string error = file_write(files, file, &entry);
            files->error = files->error.empty() ? error : files->error;
            written = true;
        }
    }
    if (written && files->error.empty()) {
        design_journal_saved(files);
    }
}

std::string design_files_save(design_files_t *files) {
    design_files_write(files);
    return files->error;
}

std::string design_files_error(const design_files_t *files) {
    return files->error;
}
