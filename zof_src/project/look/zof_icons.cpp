// Icons in texts. Anything between colons that is not the name of an icon stays as it is: "12:30:45".
#include "project/look/zof_icons.h"

#include <cjson/cJSON.h>

#include <cstdlib>
#include <cstring>

#include "project/base/zof_prj_cur.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"

enum { COPIES = 4, NAME_SIZE = 64 };

static struct {
    char *text;
    size_t size;
} copies[COPIES]; // kept for the next texts
static u32 copy_last;

// Returns the letter of "U+E000"; 0 for another text. Controls and surrogates are not letters.
static u32 letter_of(const char *text) {
    char *end = nullptr;
    const bool prefix = text && (text[0] == 'U' || text[0] == 'u') && text[1] == '+';
    const unsigned long code = prefix ? strtoul(text + 2, &end, 16) : 0;
    const bool whole = prefix && end > text + 2 && *end == '\0';
    return whole && code > ' ' && code < 0x110000 && (code < 0xD800 || code > 0xDFFF) ? (u32)code : 0;
}

cJSON *zof_icons_load(void) {
    zof_rootjson_t file = RootJsonGet(zof_res_get_prjfile_path("config/", "icons.g"));
    cJSON *icon = nullptr;
    zof_fault_scope scope(zof_res_get_prjfile_path("config/", "icons.g"), file.root);
    cJSON_ArrayForEach(icon, file.root) {
        if (!letter_of(cJSON_GetStringValue(icon))) {
            zof_fault_at(icon, "expected a letter as \"U+E000\"");
        }
    }
    Freebuff(file.content);
    return file.root;
}

// Returns the letter that the name at `text`, up to the next colon, stands for; 0 if it is not an icon.
static u32 icon_at(const cJSON *icons, const char *text, size_t *length) {
    char name[NAME_SIZE];
    *length = strcspn(text, ": \n");
    if (text[*length] != ':' || *length == 0 || *length >= sizeof(name)) {
        return 0;
    }
    memcpy(name, text, *length);
    name[*length] = '\0';
    return letter_of(cJSON_GetStringValue(cJSON_GetObjectItem(icons, name)));
}

static char *letter_write(char *out, u32 letter) {
    const u32 utf8 = _lv_txt_unicode_to_encoded(letter);
    const size_t size = letter < 0x80 ? 1 : letter < 0x800 ? 2 : letter < 0x10000 ? 3 : 4;
    memcpy(out, &utf8, size);
    return out + size;
}

// Returns room for `size` bytes; null without memory.
static char *copy_room(size_t size) {
    auto &copy = copies[++copy_last % COPIES];
    if (copy.size < size) {
        zof_free(copy.text);
        copy.text = (char *)zof_malloc(size);
        copy.size = copy.text ? size : 0;
    }
    return copy.text;
}

const char *zof_icons_show(const char *text) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!text || !prj || !prj->icons || !strchr(text, ':')) {
        return text;
    }
    char *shown = nullptr, *out = nullptr;
    for (const char *at = text; *at;) {
        size_t length = 0;
        const u32 letter = *at == ':' ? icon_at(prj->icons, at + 1, &length) : 0;
        if (letter && !shown) {
            shown = out = copy_room(2 * strlen(text) + 1); // a letter of four bytes may stand for ":x:"
            if (!shown) {
                return text;
            }
            memcpy(out, text, (size_t)(at - text));
            out += at - text;
        }
        if (letter) {
            out = letter_write(out, letter);
            at += length + 2;
        } else {
            if (out) {
                *out++ = *at;
            }
            at++;
        }
    }
    if (out) {
        *out = '\0';
    }
    return shown ? shown : text;
}
