// Finds outline fonts whose end is missing. FreeType opens such a file if the part that it needs first is there, and
// then draws no letters.
#include "project/look/zof_font_in.h"

enum { WOFF_LENGTH = 8, TTC_FIRST = 12, DIRECTORY_HEAD = 12, TABLE_ROW = 16, TABLE_OFFSET = 8, TABLE_LENGTH = 12 };

static u32 be32(const u8 *at) {
    return (u32)at[0] << 24 | (u32)at[1] << 16 | (u32)at[2] << 8 | at[3];
}

static bool has_tag(const u8 *content, const char *tag) {
    return be32(content) == be32((const u8 *)tag);
}

// Returns true if a table of the font at `start` ends after the file.
static bool is_directory_cut(const u8 *content, u32 size, u32 start) {
    if (start > size - DIRECTORY_HEAD) {
        return true;
    }
    const u32 count = (u32)content[start + 4] << 8 | content[start + 5];
    const u8 *row = content + start + DIRECTORY_HEAD;
    if ((u64)start + DIRECTORY_HEAD + (u64)count * TABLE_ROW > size) {
        return true;
    }
    for (u32 i = 0; i < count; i++, row += TABLE_ROW) {
        if ((u64)be32(row + TABLE_OFFSET) + be32(row + TABLE_LENGTH) > size) {
            return true;
        }
    }
    return false;
}

bool zof_font_is_cut(const u8 *content, u32 size) {
    static const char open_type[] = "\0\1\0";
    if (size < TTC_FIRST + 4) {
        return false; // not a font at all
    }
    if (has_tag(content, "wOFF")) {
        return be32(content + WOFF_LENGTH) > size;
    }
    const bool collection = has_tag(content, "ttcf");
    const bool single = has_tag(content, open_type) || has_tag(content, "OTTO") || has_tag(content, "true");
    return (collection || single) && is_directory_cut(content, size, collection ? be32(content + TTC_FIRST) : 0);
}
