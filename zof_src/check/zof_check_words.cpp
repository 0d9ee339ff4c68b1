// Language keys: each key in use needs a text in every language, and each text should be used.
#include <algorithm>
#include <cstring>

#include "check/zof_check_in.h"
#include "zof_lib/zof_util.h"

// Texts that the runtime itself looks up.
static const char *const own_words[] = {"update_running", "update_done"};

static void word_add(check_run_t *c, check_list_t<check_word_t> &list, const char *key, const check_file_t *file,
                     u32 node) {
    check_word_t *made = check_add(list);
    if (made) {
        *made = {zof_text_copy(key), (check_file_t *)file, node, false};
    }
    c->no_memory = c->no_memory || !made || !made->key;
}

void check_language_file(check_run_t *c, check_file_t *file) {
    for (u32 at = file->doc.nodes[0].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        char key[256];
        zof_jdoc_key(&file->doc, at, key, sizeof key);
        char text[1024];
        if (zof_jdoc_text(&file->doc, at, text, sizeof text) < 0) {
            check_report(c, file, at, CHECK_KIND, "expected a text");
        } else {
            check_icon_use(c, file, at, text);
        }
        word_add(c, c->words, key, file, at);
    }
}

// Handles a text of a view: a text that begins with '#' is a language key; any other is shown as it is.
void check_word_use(check_run_t *c, const check_file_t *file, u32 node, const char *text) {
    if (text[0] == '#' && text[1]) {
        word_add(c, c->uses, text + 1, file, node);
    } else {
        check_icon_use(c, file, node, text);
    }
}

static int key_order(const char *a, const char *b) {
    for (; *a || *b; a++, b++) {
        const int x = *a >= 'A' && *a <= 'Z' ? *a + 32 : *a, y = *b >= 'A' && *b <= 'Z' ? *b + 32 : *b;
        if (x != y) {
            return x - y;
        }
    }
    return 0;
}

static bool word_before(const check_word_t &a, const check_word_t &b) {
    const int order = key_order(a.key, b.key);
    return order != 0 ? order < 0 : a.file != b.file ? a.file < b.file : a.node < b.node;
}

static void sort(check_list_t<check_word_t> &list) {
    std::sort(list.at, list.at + list.count, word_before);
}

// Reports keys given twice in one language; the words are sorted.
static void twice_check(check_run_t *c) {
    for (u32 i = 1; i < c->words.count; i++) {
        const check_word_t *a = &c->words.at[i - 1], *b = &c->words.at[i];
        if (a->file == b->file && key_order(a->key, b->key) == 0) {
            check_report_key(c, b->file, b->node, CHECK_KEY_TWICE, "%s is given twice; the first one is used", b->key);
        }
    }
}

// Marks the words with this key as used. Returns the first one, or null.
static check_word_t *words_use(check_run_t *c, const char *key) {
    const check_word_t wanted = {(char *)key, nullptr, 0, false};
    check_word_t *end = c->words.at + c->words.count;
    check_word_t *first = std::lower_bound(c->words.at, end, wanted, word_before);
    for (check_word_t *at = first; at != end && key_order(at->key, key) == 0; at++) {
        at->used = true;
    }
    return first != end && key_order(first->key, key) == 0 ? first : nullptr;
}

static bool language_has(check_run_t *c, const check_word_t *first, const check_file_t *language) {
    for (const check_word_t *at = first; at < c->words.at + c->words.count && key_order(at->key, first->key) == 0;
         at++) {
        if (at->file == language) {
            return true;
        }
    }
    return false;
}

// Reports a key for each language that lacks it, at its text in another language or at its use.
static void languages_check(check_run_t *c, const check_word_t *word, const check_word_t *first) {
    for (u32 i = 0; i < c->files.count; i++) {
        const check_file_t *language = &c->files.at[i];
        if (check_begins(language->path, "config/languages/") && check_file_whole(language) &&
            !(first && language_has(c, first, language))) {
            (first ? check_report_key : check_report)(c, word->file, word->node, CHECK_TEXT_MISSING,
                                                      "%s has no text %s", language->path, word->key);
        }
    }
}

void check_words(check_run_t *c) {
    sort(c->words);
    sort(c->uses);
    twice_check(c);
    for (const char *own : own_words) {
        words_use(c, own);
    }
    for (u32 i = 0; i < c->uses.count; i++) {
        const check_word_t *use = &c->uses.at[i];
        const bool again = i > 0 && key_order(use->key, use[-1].key) == 0;
        const check_word_t *first = again ? nullptr : words_use(c, use->key);
        if (!again && !first) {
            languages_check(c, use, nullptr);
        }
    }
    for (u32 i = 0; i < c->words.count; i++) {
        const check_word_t *word = &c->words.at[i];
        if (i > 0 && key_order(word->key, word[-1].key) == 0) {
            continue;
        }
        languages_check(c, word, word);
        if (!word->used && !c->broken) {
            check_report_key(c, word->file, word->node, CHECK_TEXT_UNUSED, "no file uses the text %s", word->key);
        }
    }
}
