// Two levels of tables by number, of which only the parts in use exist: numbers of controls are mostly small and close
// together.
#include "zof_lib/dblist/db_index.h"

#include "zof_lib/zof_stdio.h"

enum { PAGE = 256, WORTH_IT = 32 }; // up to so many elements are compared faster than an index is made

struct db_index {
    db_node **pages[UINT16_MAX / PAGE + 1];
};

void db_index_free(db_list *list) {
    for (u32 i = 0; list->index && i <= UINT16_MAX / PAGE; i++) {
        zof_free(list->index->pages[i]);
    }
    zof_free(list->index);
    list->index = nullptr;
}

// False when there is no memory, or when the number is taken or too large.
static bool node_enter(const db_list *list, db_node *node) {
    if (!node->data) {
        return true; // matches no number
    }
    const u32 number = list->number(node->data);
    if (number > UINT16_MAX) {
        return false;
    }
    db_node **&page = list->index->pages[number / PAGE];
    page = page ? page : (db_node **)zof_malloc(PAGE * sizeof(db_node *));
    if (!page || page[number % PAGE]) {
        return false;
    }
    page[number % PAGE] = node;
    return true;
}

// A list that cannot have an index is not asked for its numbers again.
static void index_give_up(db_list *list) {
    db_index_free(list);
    list->number = nullptr;
}

db_index *db_index_of(db_list *list) {
    if (list->index || !list->number || list->count <= WORTH_IT) {
        return list->index;
    }
    list->index = (db_index *)zof_malloc(sizeof(db_index));
    if (!list->index) {
        return nullptr;
    }
    for (db_node *node = list->head->next; list->index && node != list->head; node = node->next) {
        db_index_add(list, node);
    }
    return list->index;
}

db_node *db_index_find(const db_index *index, u32 number) {
    db_node *const *page = number <= UINT16_MAX ? index->pages[number / PAGE] : nullptr;
    return page ? page[number % PAGE] : nullptr;
}

void db_index_add(db_list *list, db_node *node) {
    if (list->index && !node_enter(list, node)) {
        index_give_up(list);
    }
}

void db_index_remove(db_list *list, const db_node *node) {
    if (list->index && node->data) {
        const u32 number = list->number(node->data);
        list->index->pages[number / PAGE][number % PAGE] = nullptr;
    }
}
