// Checks single values against the rows of the catalogue: kinds, ranges, names, colours, and file names.
#include <cmath>
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_util.h"

static const char *const found_kinds[] = {"an object", "an array", "a text", "a number", "true", "false", "null"};

enum { TEXT_SIZE = 1024 };

static zof_jkind_e kind_of(const check_file_t *file, u32 node) {
    return file->doc.nodes[node].kind;
}

// The kinds of value that a key accepts.
struct wanted_t {
    zof_jkind_e kind; // ZOF_J_TRUE means true or false
    bool text_too;    // names or colours are accepted too
    const char *said;
};

static wanted_t wanted_of(const zof_cat_key_t *key, const reflect_item_t *row) {
    const char *json = zof_cat_kinds[key->kind].json;
    if (std::strcmp(json, "text") == 0) {
        return {ZOF_J_TEXT, false, "a text"};
    }
    if (std::strcmp(json, "bool") == 0) {
        return {ZOF_J_TRUE, false, "true or false"};
    }
    if (std::strcmp(json, "object") == 0) {
        return {ZOF_J_OBJECT, false, "an object"};
    }
    if (std::strcmp(json, "array") == 0) {
        return {ZOF_J_ARRAY, false, "an array"};
    }
    const bool color = row && row->flags & CSON_COLORS;
    const bool named = row && row->names;
    return {ZOF_J_NUMBER, color || named,
            color   ? "a number, or a colour as \"#RRGGBB\""
            : named ? "a number or a name"
                    : "a number"};
}

bool check_kind(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                const zof_cat_key_t *key) {
    const wanted_t wanted = wanted_of(key, zof_cat_row(record, key));
    const zof_jkind_e kind = kind_of(file, node);
    const bool fits = wanted.kind == kind || (wanted.kind == ZOF_J_TRUE && kind == ZOF_J_FALSE) ||
                      (wanted.text_too && kind == ZOF_J_TEXT);
    if (!fits) {
        const char *text = file->doc.text + file->doc.nodes[node].at + 1;
        const bool quoted = kind == ZOF_J_TEXT && wanted.kind == ZOF_J_NUMBER && std::strchr("-0123456789", *text);
        check_report(c, file, node, CHECK_KIND, "expected %s, found %s%s", wanted.said, found_kinds[kind],
                     quoted ? "; numbers are written without quotes" : "");
    }
    return fits;
}

// Numbers ----------------------------------------------------------------------------------------------------------

struct range_t {
    s64 low, high;
};

// Returns the range of values that the decoder can store in the field.
static range_t field_range(const reflect_item_t *row) {
    const u32 bits = row && row->type == CSON_INTEGER && row->size <= 4 ? 8 * (u32)row->size : 32;
    return {-((s64)1 << (bits - 1)), ((s64)1 << bits) - 1};
}

static range_t range_of(const zof_cat_key_t *key, const reflect_item_t *row) {
    const range_t field = field_range(row);
    const s64 values = row ? (s64)(row->flags >> CSON_VALUES_SHIFT) : 0;
    if (key->low || key->high) {
        return {key->low, key->high == ZOF_CAT_ANY ? field.high : key->high};
    }
    return values ? range_t{0, values - 1} : key->kind == ZOF_CAT_SWITCH ? range_t{0, field.high} : field;
}

static bool is_in(range_t range, double number) {
    return number >= (double)range.low && number <= (double)range.high; // false for NaN
}

bool check_all_in_range(const check_file_t *file, u32 object, const zof_cat_record_t *record, const char *const *keys) {
    double number = 0;
    for (; *keys; keys++) {
        const zof_cat_key_t *key = zof_cat_key(record, *keys);
        if (zof_jdoc_number(&file->doc, zof_jdoc_get(&file->doc, object, *keys), &number) == 0 &&
            !is_in(range_of(key, zof_cat_row(record, key)), std::trunc(number))) {
            return false;
        }
    }
    return true;
}

static bool number_has_name(const reflect_item_t *row, s64 value) {
    char text[128];
    return zof_names_write(row->names, (row->flags & CSON_ADDS) != 0, value, text, sizeof text) >= 0;
}

static void number_check(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_key_t *key,
                         const reflect_item_t *row) {
    double real = 0;
    zof_jdoc_number(&file->doc, node, &real);
    const double whole = std::trunc(real);
    if (key->kind == ZOF_CAT_COLOR && (whole < 0 || whole > 0xFFFFFF)) {
        check_report(c, file, node, CHECK_COLOUR, "a colour is a number from 0 to 16777215, 0xRRGGBB");
        return;
    }
    const range_t range = range_of(key, row);
    if (!is_in(range, whole)) {
        check_report(c, file, node, CHECK_RANGE, "%.15g is not from %lld to %lld", whole, (long long)range.low,
                     (long long)range.high);
    } else if (whole != real) {
        check_report(c, file, node, CHECK_FRACTION, "the fraction is cut off; it counts as %.0f", whole);
    } else if (row && row->names && !key->high && !(row->flags >> CSON_VALUES_SHIFT) &&
               !number_has_name(row, (s64)whole)) {
        char names[240];
        zof_names_list(row->names, names, sizeof names);
        check_report(c, file, node, CHECK_NAME, "%.0f has no meaning; the names are %s", whole, names);
    }
}

static void name_check(check_run_t *c, const check_file_t *file, u32 node, const reflect_item_t *row) {
    char text[TEXT_SIZE];
    s64 value;
    zof_jdoc_text(&file->doc, node, text, sizeof text);
    if (row->flags & CSON_COLORS && text[0] == '$') {
        check_color_use(c, file, node, text + 1);
        return;
    }
    if (csonTextRead(row, text, &value) == 0) {
        return;
    }
    if (row->flags & CSON_COLORS) {
        check_report(c, file, node, CHECK_COLOUR, ZOF_COLOR_FAULT);
    } else {
        char fault[512];
        zof_names_fault(row->names, (row->flags & CSON_ADDS) != 0, text, fault, sizeof fault);
        check_report(c, file, node, CHECK_NAME, "%s", fault);
    }
}

bool check_number_of(const check_file_t *file, u32 node, const reflect_item_t *row, s64 *value) {
    char text[128];
    double real = 0;
    if (zof_jdoc_number(&file->doc, node, &real) == 0) {
        *value = real > -1e15 && real < 1e15 && real != INT32_MAX ? (s64)real : 0;
        return true;
    }
    return row && zof_jdoc_text(&file->doc, node, text, sizeof text) >= 0 && csonTextRead(row, text, value) == 0;
}

s64 check_number(const check_file_t *file, u32 object, const char *key, const reflect_item_t *rows, s64 absent) {
    const u32 node = zof_jdoc_get(&file->doc, object, key);
    while (rows && rows->key && !check_same(rows->key, key)) {
        rows++;
    }
    s64 value = absent;
    return node != ZOF_J_NONE && check_number_of(file, node, rows && rows->key ? rows : nullptr, &value) ? value
                                                                                                         : absent;
}

// Texts ------------------------------------------------------------------------------------------------------------

bool check_text(const check_file_t *file, u32 object, const char *key, char *out, size_t size) {
    return zof_jdoc_text(&file->doc, zof_jdoc_get(&file->doc, object, key), out, size) >= 0;
}

// Kinds whose texts are file names, with their folder and the suffixes that the runtime reads.
static const struct {
    zof_cat_kind_e kind;
    const char *folder;
    const char *suffixes[6];
    const char *said;
} resources[] = {
    {ZOF_CAT_PICTURE, "image/", {".png", ".jpg", ".jpeg", ".gif"}, "pictures are .png, .jpg or .gif files"},
    {ZOF_CAT_FONT,
     "font/",
     {".ttf", ".otf", ".ttc", ".woff", ".bin"},
     "fonts are .ttf, .otf, .ttc, .woff or .bin files; with others no text is drawn"},
    {ZOF_CAT_SOUND, "sound/", {".wav", ".mp3", ".aac"}, "sounds are .wav, .mp3 or .aac files"},
    {ZOF_CAT_CLIP, "video/", {""}, ""},
};

static bool suffix_known(const char *name, const char *const *suffixes) {
    while (*suffixes && (*suffixes)[0] && !zof_suffix_is(name, *suffixes)) {
        suffixes++;
    }
    return *suffixes != nullptr;
}

static void resource_check(check_run_t *c, const check_file_t *file, u32 node, zof_cat_kind_e kind, const char *name) {
    for (const auto &row : resources) {
        if (row.kind == kind && check_file_named(c, file, node, row.folder, name) &&
            !suffix_known(name, row.suffixes)) {
            check_report(c, file, node, CHECK_FILE_NAME, "%s", row.said);
        }
    }
}

// Checks a list of font files, separated by commas.
static void fonts_check(check_run_t *c, const check_file_t *file, u32 node, char *names) {
    for (char *name = names + std::strspn(names, ", "); *name; name += std::strspn(name, ", ")) {
        char one[TEXT_SIZE];
        const size_t length = std::strcspn(name, ",");
        size_t end = length;
        while (end > 0 && name[end - 1] == ' ') {
            end--;
        }
        std::snprintf(one, sizeof one, "%.*s", (int)end, name);
        resource_check(c, file, node, ZOF_CAT_FONT, one);
        name += length;
    }
}

static void folder_check(check_run_t *c, const check_file_t *file, u32 node, const char *name) {
    char path[TEXT_SIZE + 16];
    std::snprintf(path, sizeof path, "image/%s/", name);
    for (u32 i = 0; i < c->files.count; i++) {
        if (check_begins(c->files.at[i].path, path)) {
            return;
        }
    }
    check_report(c, file, node, CHECK_FILE_MISSING, "there is no folder %s with pictures", path);
}

// Checks options, one per line. An empty line is shown as an empty row.
static void options_check(check_run_t *c, const check_file_t *file, u32 node, char *text) {
    if (std::strstr(text, "\n\n") || text[0] == '\n' || (text[0] && text[std::strlen(text) - 1] == '\n')) {
        check_report(c, file, node, CHECK_OPTIONS, "an empty line is an option without a text");
    }
    for (char *line = text; line;) {
        char *end = std::strchr(line, '\n');
        if (end) {
            *end = 0;
        }
        check_word_use(c, file, node, line);
        line = end ? end + 1 : nullptr;
    }
}

static void text_check(check_run_t *c, const check_file_t *file, u32 node, zof_cat_kind_e kind) {
    char text[TEXT_SIZE];
    zof_jdoc_text(&file->doc, node, text, sizeof text);
    if (!text[0]) {
        return;
    }
    if (kind == ZOF_CAT_WORDS || (kind == ZOF_CAT_PICTURE && text[0] == '#')) {
        check_word_use(c, file, node, text);
    } else if (kind == ZOF_CAT_OPTIONS) {
        options_check(c, file, node, text);
    } else if (kind == ZOF_CAT_FONT) {
        fonts_check(c, file, node, text);
    } else if (kind == ZOF_CAT_FOLDER) {
        folder_check(c, file, node, text);
    } else {
        resource_check(c, file, node, kind, text);
    }
}

void check_scalar(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_key_t *key) {
    const reflect_item_t *row = zof_cat_row(record, key);
    if (kind_of(file, node) == ZOF_J_NUMBER) {
        number_check(c, file, node, key, row);
    } else if (kind_of(file, node) == ZOF_J_TEXT && wanted_of(key, row).text_too) {
        name_check(c, file, node, row);
    } else if (kind_of(file, node) == ZOF_J_TEXT) {
        text_check(c, file, node, key->kind);
    }
}
