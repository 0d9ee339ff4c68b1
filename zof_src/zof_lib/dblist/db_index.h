// The index of a list whose elements have numbers: the node of a number, at the same cost however long the list is.
// Internal to the list.
#ifndef DB_INDEX_H
#define DB_INDEX_H

#include "zof_lib/dblist/db_list.h"

// The list's index, which is made here once the list is long enough to need one. Null for a list without `number`, a
// short one, and one that cannot have an index; the caller then compares element by element.
db_index *db_index_of(db_list *list);

// The node with this number; null for none and for a number above UINT16_MAX.
db_node *db_index_find(const db_index *index, u32 number);

// To be called for every node that enters or leaves the list. Two elements with one number, or no memory, end the
// index.
void db_index_add(db_list *list, db_node *node);
void db_index_remove(db_list *list, const db_node *node);

// Releases the index; the next search makes a new one.
void db_index_free(db_list *list);

#endif
