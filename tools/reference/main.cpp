// Writes the reference: pages in Markdown, of which MkDocs makes HTML, and all their snippets as files that tests check
// and run. Fails if a control type, function, event or row has no place in the pages.
#include <cstdio>
#include <filesystem>

#include "control/zof_ctrl_create.h"
#include "pages.h"
#include "tool_file.h"
#include "zof_lib/zof_type.h"

struct reference_t {
    std::string docs, out;
    std::vector<ref_header_t> headers;
    std::vector<ref_page_t> types;
    std::vector<std::string> pages; // names below docs
    std::string all;                // the text of all pages
};

static int fail(const std::string &what) {
    fprintf(stderr, "zof_reference: %s\n", what.c_str());
    return 1;
}

static std::string write(reference_t &reference, const std::string &name, const std::string &text) {
    reference.all += text;
    reference.pages.push_back(name);
    const std::string path = reference.out + "/pages/" + name;
    const std::string reason = tool_file_write(path, text);
    return reason.empty() ? "" : path + ": " + reason;
}

static std::string types_write(reference_t &reference) {
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        const std::string name = zof_ctrl_classes[type]->name;
        ref_page_t page = {type, name, reference.docs + "/types/" + name + ".md", ""};
        std::string reason = tool_file_read(page.path, page.text);
        const std::string text = reason.empty() ? ref_type_page(page, reference.headers, reason) : "";
        if (!reason.empty()) {
            return page.path + ": " + reason;
        }
        reference.types.push_back(page);
        reason = write(reference, "types/" + name + ".md", text);
        if (!reason.empty()) {
            return reason;
        }
    }
    return "";
}

static std::string page_write(reference_t &reference, const std::filesystem::path &path) {
    std::string text;
    std::string reason = tool_file_read(path.string(), text);
    if (reason.empty() && path.filename() == "functions.md") {
        text = ref_function_page(text, reference.headers, reason);
    }
    return reason.empty() ? write(reference, path.filename().string(), ref_walk_page(text))
                          : path.string() + ": " + reason;
}

static std::string pages_write(reference_t &reference) {
    std::string reason;
    for (const auto &entry : std::filesystem::directory_iterator(reference.docs)) {
        if (reason.empty() && entry.path().extension() == ".md") {
            reason = page_write(reference, entry.path());
        }
    }
    return reason;
}

// MkDocs finds the pages beside its settings. Each page must be in its list.
static std::string settings_write(const reference_t &reference) {
    std::string text;
    const std::string path = reference.docs + "/mkdocs.yml";
    std::string reason = tool_file_read(path, text);
    for (const std::string &page : reference.pages) {
        const bool listed = text.find(" - " + page + "\n") != std::string::npos;
        if (!listed) {
            reason = "does not list " + page;
        }
    }
    reason = reason.empty() ? tool_file_write(reference.out + "/mkdocs.yml", text) : reason;
    return reason.empty() ? "" : path + ": " + reason;
}

int main(int argc, char **argv) {
    if (argc != 4) {
        fprintf(stderr,
                "usage: zof_reference DOCS HEADERS OUT\n"
                "Writes the pages in DOCS, with what the headers in HEADERS and the catalogue say, to OUT/pages,\n"
                "and their snippets to OUT/panel, a project folder, and OUT/code.\n");
        return 2;
    }
    reference_t reference = {.docs = argv[1], .out = argv[3]};
    std::error_code ignored;
    std::filesystem::create_directories(reference.out + "/pages/types", ignored);
    std::string reason = ref_headers_read(argv[2], reference.headers);
    reason = reason.empty() ? types_write(reference) : reason;
    reason = reason.empty() ? pages_write(reference) : reason;
    reason = reason.empty() ? settings_write(reference) : reason;
    reason = reason.empty() ? ref_snippets_write(reference.out, reference.types) : reason;
    if (!reason.empty()) {
        return fail(reason);
    }
    const std::string missing = ref_without_place(reference.all, reference.headers);
    return missing.empty() ? 0 : fail("no page of " + reference.docs + " has a place for " + missing);
}
