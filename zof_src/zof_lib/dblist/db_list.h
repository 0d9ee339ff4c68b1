// Circular doubly linked list with a sentinel and a compare function per list. No lock.
#ifndef DB_LIST_H
#define DB_LIST_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct db_node {
    void *data;
    struct db_node *prev, *next;
} db_node;

typedef struct {
    s32 count;
    db_node *current;
    db_node *head;
    int (*compare)(void *data, void *key);
} db_list;

db_list *db_list_create(void);
s32 __db_list_put_tail(db_list *list, void *data);
s32 __db_list_put_head(db_list *list, void *data);
s32 __db_list_insert_before(db_list *list, s32 pos, void *data);
s32 __db_list_insert_after(db_list *list, s32 pos, void *data);
void *__db_list_pop(db_list *list);
void *__db_list_search_and_pop(db_list *list, void *key);
void *__db_list_visit_and_pop(db_list *list, s32 index);
void *__db_list_search_node(db_list *list, void *key);
s32 __db_list_search(db_list *list, void *key);
void *__db_list_visit(db_list *list, s32 index);
db_node *__db_list_visit_node(db_list *list, s32 index);
void __db_list_travel(db_list *list, void (*fn)(void *data));
void __db_list_clear(db_list *list);
void __db_list_destory(db_list *list, void (*fn)(void *data));
zof_bool is_list_empty(db_list *list);
void put_current_in_position(db_list *list, s32 pos);
void *get_current_data(db_list *list);

ZOF_C_END

#endif
