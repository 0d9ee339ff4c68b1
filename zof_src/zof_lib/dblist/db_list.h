// Circular doubly linked list with a sentinel and a compare function for each list. No lock: a list belongs to one
// thread. The list owns its nodes, never the data. Elements are numbered in two ways: index from 0, position from 1.
// For a null list every operation does nothing and returns null, -1 or 0.
#ifndef DB_LIST_H
#define DB_LIST_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct db_node {
    void *data;
    struct db_node *prev, *next;
} db_node;

typedef struct db_index db_index;

typedef struct {
    s32 count;
    db_node *current; // cursor of get_current_data; steps back when its node is removed
    db_node *head;    // sentinel: holds no data
    // Returns 0 for a match; must accept null data. Set by the owner after creation; without it nothing is found.
    int (*compare)(void *data, void *key);
    // OPTIONAL, set by the owner after creation when every key is a u32: the number of an element, by which `compare`
    // matches. A number must not change while its element is in the list. Searches then do not slow down as the list
    // grows, unless two elements have the same number. Never called with null data.
    u32 (*number)(const void *data);
    db_index *index; // the list's own
} db_list;

// Creates an empty list without a compare function; null without memory.
db_list *db_list_create(void);

// Appends at one end. Returns 0, or -1 without memory.
s32 __db_list_put_tail(db_list *list, void *data);
s32 __db_list_put_head(db_list *list, void *data);

// Both make `data` the element at position `pos`, which must be in 1 to `count`; an empty list accepts only 0. Return
// -1 for null data or any other position, with the list unchanged.
s32 __db_list_insert_before(db_list *list, s32 pos, void *data);
s32 __db_list_insert_after(db_list *list, s32 pos, void *data);

// Remove the first element, the first match, the element at an index. Returns the data, or null without a match.
void *__db_list_pop(db_list *list);
void *__db_list_search_and_pop(db_list *list, void *key);
void *__db_list_visit_and_pop(db_list *list, s32 index);

// Returns the data of the first match, or null. The key is passed to `compare` as it is.
void *__db_list_search_node(db_list *list, void *key);

// Counts from the sentinel, which is compared as 0; the first element is 1 and the last is never compared. Returns -1
// if not found. To find an element use __db_list_search_node.
s32 __db_list_search(db_list *list, void *key);

// Return data, or node, by index; null when out of range.
void *__db_list_visit(db_list *list, s32 index);
db_node *__db_list_visit_node(db_list *list, s32 index);

// Calls fn(data) for each element, first to last. fn may remove the element it is called with.
void __db_list_travel(db_list *list, void (*fn)(void *data));

// Releases all nodes, not their data; the list stays usable.
void __db_list_clear(db_list *list);

// Calls fn(data), unless fn is null, for each element; then releases nodes, sentinel and list.
void __db_list_destory(db_list *list, void (*fn)(void *data));

// Returns true for a null list too.
zof_bool is_list_empty(db_list *list);

// Moves the cursor to a position, a negative one to the sentinel. Does nothing for 0, above `count`, or an empty list.
void put_current_in_position(db_list *list, s32 pos);

// Moves the cursor on and returns the data there; wraps around. Null for an empty list.
void *get_current_data(db_list *list);

ZOF_C_END

#endif
