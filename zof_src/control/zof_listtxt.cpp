// Options of drop lists and rollers. LVGL takes one text with a line for each option; a change of language, or of one
// option, needs the texts as they were given. So the list is authoritative, and LVGL's text is made from it.
#include "control/zof_listtxt.h"

#include <string.h>

#include "project/look/zof_lang.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static void list_empty(db_list *list) {
    __db_list_travel(list, zof_free);
    __db_list_clear(list);
}

static s32 text_append(db_list *list, const char *text, size_t size) {
    char *copy = zof_text_copy_n(text, size);
    if (copy && __db_list_put_tail(list, copy) == 0) {
        return 0;
    }
    zof_free(copy);
    return -1;
}

void zof_listtxt_str2list(const char *text, db_list *list) {
    if (!text || !list) {
        return;
    }
    list_empty(list);
    for (;;) {
        size_t size = strcspn(text, "\n");
        if (text_append(list, text, size) != 0 || !text[size]) {
            return;
        }
        text += size + 1;
    }
}

static const db_node *first(const db_list *list) {
    return list->head->next;
}

// LVGL counts options in 16 bits, and an endless roller holds each of them seven times.
static void lines_limit(char *text) {
    u32 lines = 1;
    for (; (text = strchr(text, '\n')); text++) {
        if (lines++ < ZOF_LISTTXT_LINES) {
            continue;
        }
        zof_printf("options: only the first %d lines are shown", ZOF_LISTTXT_LINES);
        *text = 0;
        return;
    }
}

char *zof_listtxt_list2str(db_list *list, char **slot) {
    if (!list || !slot) {
        return nullptr;
    }
    size_t size = 0;
    for (const db_node *at = first(list); at != list->head; at = at->next) {
        size += at->data ? strlen(zof_lang_get_cur_str((const char *)at->data)) + 2 : 0;
    }
    char *text = size ? (char *)zof_malloc(size) : nullptr;
    if (!text) {
        return nullptr;
    }
    char *end = text;
    for (const db_node *at = first(list); at != list->head; at = at->next) {
        if (at->data) {
            const char *line = zof_lang_get_cur_str((const char *)at->data);
            const size_t length = strlen(line);
            memcpy(end, line, length);
            end[length] = '\n';
            end += length + 1;
        }
    }
    end[-1] = 0;
    lines_limit(text);
    zof_free(*slot);
    *slot = text;
    return text;
}

char *zof_listtxt_start(db_list **list, char **slot) {
    if (!list || !slot) {
        return nullptr;
    }
    if (!*list) {
        *list = db_list_create();
        zof_listtxt_str2list(*slot, *list);
    }
    char *text = zof_listtxt_list2str(*list, slot);
    return text ? text : *slot;
}

char *zof_listtxt_add_option(db_list *list, char **slot, const char *text, u32 position) {
    if (!list || !text || list->count >= ZOF_LISTTXT_LINES) {
        return nullptr;
    }
    char *copy = zof_text_copy(text);
    bool inside = position < (u32)list->count;
    s32 result = inside ? __db_list_insert_before(list, (s32)position + 1, copy) : __db_list_put_tail(list, copy);
    if (copy && result == 0) {
        return zof_listtxt_list2str(list, slot);
    }
    zof_free(copy);
    return nullptr;
}

char *zof_listtxt_modify_option(db_list *list, char **slot, const char *text, u32 position) {
    db_node *node = list && position < (u32)list->count ? __db_list_visit_node(list, (s32)position) : nullptr;
    char *copy = node ? zof_text_copy(text) : nullptr;
    if (!copy) {
        return nullptr;
    }
    zof_free(node->data);
    node->data = copy;
    return zof_listtxt_list2str(list, slot);
}

char *zof_listtxt_del_option(db_list *list, char **slot, u32 position) {
    if (!list || position >= (u32)list->count) {
        return nullptr;
    }
    zof_free(__db_list_visit_and_pop(list, (s32)position));
    return zof_listtxt_list2str(list, slot);
}

char *zof_listtxt_change_option(db_list *list, char **slot, const char *const *texts, u32 count) {
    if (!list || !texts) {
        return nullptr;
    }
    list_empty(list);
    for (u32 i = 0; i < count; i++) {
        if (texts[i]) {
            text_append(list, texts[i], strlen(texts[i]));
        }
    }
    return zof_listtxt_list2str(list, slot);
}

void zof_listtxt_destroy(db_list **list) {
    if (!list) {
        return;
    }
    __db_list_destory(*list, zof_free);
    *list = nullptr;
}
