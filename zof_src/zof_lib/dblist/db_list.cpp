// The list behind every collection of the runtime. Circular through a sentinel, so that no operation has to check for
// an end.
#include "zof_lib/dblist/db_list.h"

#include "zof_lib/dblist/db_index.h"
#include "zof_lib/zof_stdio.h"

namespace {

db_node *db_list_new_node(void *data) {
    auto *node = (db_node *)(zof_malloc(sizeof(db_node)));
    if (!node) {
        zof_printf("[%s: %d]->{%s} zof_malloc failed\n", "zof_src/zof_lib/dblist/db_list.cpp", 47, "db_list_new_node");
        return nullptr;
    }
    node->data = data;
    return node;
}

s32 insert_behind(db_list *list, db_node *before, void *data) {
    db_node *node = db_list_new_node(data);
    if (!node) {
        return -1;
    }
    node->prev = before;
    node->next = before->next;
    before->next->prev = node;
    before->next = node;
    list->count++;
    db_index_add(list, node);
    return 0;
}

// The cursor steps back, so that its next reader gets the element after the removed one.
void *remove_node(db_list *list, db_node *node) {
    db_index_remove(list, node);
    if (list->current == node) {
        list->current = node->prev;
    }
    node->prev->next = node->next;
    node->next->prev = node->prev;
    list->count--;
    void *data = node->data;
    zof_free(node);
    return data;
}

db_node *find_node(db_list *list, void *key) {
    if (!list || !list->compare) {
        return nullptr;
    }
    const db_index *index = key ? db_index_of(list) : nullptr;
    if (index) {
        return db_index_find(index, *(const u32 *)key);
    }
    for (db_node *node = list->head->next; node != list->head; node = node->next) {
        if (list->compare(node->data, key) == 0) {
            return node;
        }
    }
    return nullptr;
}

} // namespace

db_list *db_list_create(void) {
    auto *list = (db_list *)(zof_malloc(sizeof(db_list)));
    db_node *head = list ? db_list_new_node(nullptr) : nullptr;
    if (!head) {
        zof_free(list);
        return nullptr;
    }
    head->prev = head->next = head;
    list->head = list->current = head;
    return list;
}

s32 __db_list_put_tail(db_list *list, void *data) {
    return list ? insert_behind(list, list->head->prev, data) : -1;
}

s32 __db_list_put_head(db_list *list, void *data) {
    return list ? insert_behind(list, list->head, data) : -1;
}

s32 __db_list_insert_before(db_list *list, s32 pos, void *data) {
    if (!list || !data) {
        return -1;
    }
    if (list->count == 0) {
        return pos == 0 ? insert_behind(list, list->head, data) : -1;
    }
    if (pos < 1 || pos > list->count) {
        return -1;
    }
    return insert_behind(list, __db_list_visit_node(list, pos - 1)->prev, data);
}

// After element pos - 1 is before element pos.
s32 __db_list_insert_after(db_list *list, s32 pos, void *data) {
    return __db_list_insert_before(list, pos, data);
}

void *__db_list_pop(db_list *list) {
    return __db_list_visit_and_pop(list, 0);
}

void *__db_list_search_and_pop(db_list *list, void *key) {
    db_node *node = key ? find_node(list, key) : nullptr;
    return node ? remove_node(list, node) : nullptr;
}

void *__db_list_visit_and_pop(db_list *list, s32 index) {
    db_node *node = __db_list_visit_node(list, index);
    return node ? remove_node(list, node) : nullptr;
}

void *__db_list_search_node(db_list *list, void *key) {
    db_node *node = find_node(list, key);
    return node ? node->data : nullptr;
}

s32 __db_list_search(db_list *list, void *key) {
    if (!list || !key || !list->compare || list->count == 0) {
        return -1;
    }
    s32 steps = 0;
    for (db_node *node = list->head; list->compare(node->data, key) != 0; steps++) {
        node = node->next;
        if (node->next == list->head) {
            return -1;
        }
    }
    return steps;
}

void *__db_list_visit(db_list *list, s32 index) {
    db_node *node = __db_list_visit_node(list, index);
    return node ? node->data : nullptr;
}

// Walks from the nearer end: the last controls of a view are looked up as often as the first.
db_node *__db_list_visit_node(db_list *list, s32 index) {
    if (!list || index < 0 || index >= list->count) {
        return nullptr;
    }
    db_node *node = list->head;
    if (index < list->count / 2) {
        for (s32 i = 0; i <= index; i++) {
            node = node->next;
        }
    } else {
        for (s32 i = list->count; i > index; i--) {
            node = node->prev;
        }
    }
    return node;
}

void __db_list_travel(db_list *list, void (*fn)(void *data)) {
    if (!list || !fn) {
        return;
    }
    for (db_node *node = list->head->next, *next; node != list->head; node = next) {
        next = node->next;
        fn(node->data);
    }
}

void __db_list_clear(db_list *list) {
    if (list) {
        db_index_free(list); // first: the data may be released already and has no number then
    }
    while (list && list->count > 0) {
        remove_node(list, list->head->next);
    }
}

void __db_list_destory(db_list *list, void (*fn)(void *data)) {
    if (!list) {
        return;
    }
    __db_list_travel(list, fn);
    __db_list_clear(list);
    zof_free(list->head);
    zof_free(list);
}

zof_bool is_list_empty(db_list *list) {
    return !list || list->count == 0;
}

void put_current_in_position(db_list *list, s32 pos) {
    if (!list || list->count == 0 || pos == 0 || pos > list->count) {
        return;
    }
    list->current = pos < 0 ? list->head : __db_list_visit_node(list, pos - 1);
}

void *get_current_data(db_list *list) {
    if (!list || list->count == 0) {
        return nullptr;
    }
    list->current = list->current->next;
    if (list->current == list->head) {
        list->current = list->current->next;
    }
    return list->current->data;
}
