// The store: the project's files as texts in memory, which are what the pages see, and their state on the disk.
#include "design_files.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "design_journal.h"
#include "design_text.h"
#include "drv/zof_drv.h"
#include "zof_lib/zof_stdio.h"

// The gate of paths ------------------------------------------------------------------------------------------------

// Only plain names below the folder: no "..", no other folder or drive, nothing hidden.
static bool path_is_plain(const std::string &file) {
    size_t at = 0;
    if (file.empty() || file.find_first_of(std::string("\\:\0", 3)) != std::string::npos || file.size() > 400) {
        return false;
    }
    while (at <= file.size()) {
        const size_t end = std::min(file.find('/', at), file.size());
        if (end == at || file[at] == '.') {
            return false;
        }
        at = end + 1;
    }
    return true;
}

static bool is_below(const std::string &path, const std::string &folder) {
    return path.size() > folder.size() && path.compare(0, folder.size(), folder) == 0;
}

// Returns where a path leads, also if the last parts of it do not exist yet; empty if it cannot be known.
static std::string real_of(const std::string &path) {
    char real[1024];
    if (zof_file_real_path(path.c_str(), real, sizeof(real)) == 0) {
        return real;
    }
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0 || zof_file_kind(path.c_str()) != ZOF_FILE_NONE) {
        return ""; // a link that leads nowhere
    }
    const std::string folder = real_of(path.substr(0, slash));
    return folder.empty() ? "" : folder + path.substr(slash);
}

std::string design_file_path(const design_files_t *files, const std::string &file) {
    const std::string real = path_is_plain(file) ? real_of(files->folder + file) : "";
    return is_below(real, files->folder) ? real : "";
}

static std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    return text;
}

// Windows takes these names for devices, with any ending, and stores no name with such characters or such an end.
static bool name_is_portable(const std::string &name) {
    static const std::set<std::string> devices = {"con",  "prn",  "aux",  "nul",  "com1", "com2", "com3", "com4",
                                                  "com5", "com6", "com7", "com8", "com9", "lpt1", "lpt2", "lpt3",
                                                  "lpt4", "lpt5", "lpt6", "lpt7", "lpt8", "lpt9"};
    return name.find_first_of("<>:\"|?*\\") == std::string::npos && name.back() != '.' && name.back() != ' ' &&
           std::none_of(name.begin(), name.end(), [](char c) { return (u8)c < ' '; }) &&
           !devices.contains(lower(name.substr(0, name.find('.'))));
}

std::string design_file_new_fault(const design_files_t *files, const std::string &file) {
    const size_t slash = file.rfind('/') + 1;
    const std::string name = file.substr(slash);
    if (name.empty() || !name_is_portable(name)) {
        return "\"" + name + "\" is not a name of a file on all systems";
    }
    std::string same;
    zof_dir_t *dir = zof_opendir((files->folder + file.substr(0, slash)).c_str());
    while (const zof_dirent_t *entry = dir ? zof_readdir(dir) : nullptr) {
        same = lower(entry->name) == lower(name) ? entry->name : same;
    }
    zof_closedir(dir);
    return same.empty() ? "" : file.substr(0, slash) + same + " exists already";
}

// Files ------------------------------------------------------------------------------------------------------------

bool design_file_read(const std::string &path, std::string *text) {
    FILE *f = zof_file_read_open(path.c_str());
    if (!f) {
        return false;
    }
    char part[65536];
    size_t size;
    text->clear();
    while (text->size() <= DESIGN_FILE_MAX && (size = fread(part, 1, sizeof(part), f)) > 0) {
        text->append(part, size);
    }
    const bool good = !ferror(f) && text->size() <= DESIGN_FILE_MAX;
    fclose(f);
    return good;
}

design_file_t *design_file_of(design_files_t *files, const std::string &file) {
    const auto found = files->files.find(file);
    if (found != files->files.end()) {
        return &found->second;
    }
    const std::string path = design_file_path(files, file);
    if (path.empty()) {
        return nullptr;
    }
    design_file_t entry = {};
    zof_file_stamp(path.c_str(), &entry.stamp); // before the text, so that a change in between is found
    entry.doc.exists = design_file_read(path, &entry.doc.text);
    return &files->files.emplace(file, std::move(entry)).first->second;
}

std::string design_file_hash(design_file_t *entry) {
    if (entry->hash.empty()) {
        entry->hash = entry->doc.exists ? design_doc_hash(entry->doc.text) : "-";
    }
    return entry->hash;
}

void design_file_set(design_files_t *files, const std::string &file, design_doc_t &&doc) {
    design_file_t *entry = &files->files[file];
    entry->hash_before = design_file_hash(entry);
    if (!entry->unsaved) {
        entry->unsaved = true;
        entry->disk = std::move(entry->doc);
    }
    entry->doc = std::move(doc);
    entry->hash.clear();
    if (entry->disk.exists == entry->doc.exists && entry->disk.text == entry->doc.text) {
        entry->unsaved = false;
        entry->disk = {};
    }
}

bool design_file_changed(const design_files_t *files, const std::string &file, const design_file_t *entry) {
    zof_file_stamp_t now = {};
    zof_file_stamp((files->folder + file).c_str(), &now);
    return memcmp(&now, &entry->stamp, sizeof(now)) != 0;
}

const std::string *design_files_text(design_files_t *files, const std::string &file, std::string *hash) {
    design_file_t *entry = design_file_of(files, file);
    if (!entry || !entry->doc.exists) {
        return nullptr;
    }
    if (hash) {
        *hash = design_file_hash(entry);
    }
    return &entry->doc.text;
}

// Opening ----------------------------------------------------------------------------------------------------------

bool design_files_is_text(const std::string &file) {
    return file.starts_with("config/") && file.ends_with(".g");
}

void design_files_walk(const design_files_t *files, const std::string &below, std::vector<std::string> *out) {
    enum { DEPTH_MAX = 8, FILES_MAX = 20000 };
    zof_dir_t *dir = zof_opendir((files->folder + below).c_str());
    while (const zof_dirent_t *entry = dir ? zof_readdir(dir) : nullptr) {
        const std::string name = entry->name;
        if (name.empty() || name[0] == '.' || out->size() >= FILES_MAX) {
            continue;
        }
        if (!entry->is_dir) {
            out->push_back(below + name);
        } else if (std::count(below.begin(), below.end(), '/') < DEPTH_MAX) {
            design_files_walk(files, below + name + "/", out);
        }
    }
    zof_closedir(dir);
}

// All texts are read now, because a change by another program can only be taken back if the text before is known.
static void files_first(design_files_t *files) {
    std::vector<std::string> all;
    std::set<std::string> folders;
    design_files_walk(files, "", &all);
    for (const std::string &file : all) {
        if (design_files_is_text(file)) {
            design_file_of(files, file);
            folders.insert(files->folder + file.substr(0, file.rfind('/') + 1));
        } else if (!design_file_path(files, file).empty()) {
            zof_file_stamp((files->folder + file).c_str(), &files->others[file]);
        }
    }
    for (const std::string &folder : folders) {
        zof_file_temp_clear(folder.c_str()); // what a killed process has left
    }
}

design_files_t *design_files_open(const std::string &folder, const std::string &state, std::string *error) {
    char real[1024];
    if (zof_file_real_path(folder.c_str(), real, sizeof(real)) != 0) {
        *error = folder + ": there is no such folder";
        return nullptr;
    }
    auto *files = new design_files_t{};
    files->folder = std::string(real) + "/";
    files->next_number = 1;
    files_first(files);
    design_journal_open(files, state);
    design_files_write(files);
    return files;
}

void design_files_close(design_files_t *files) {
    if (files) {
        design_journal_close(files);
        delete files;
    }
}
