// The list: ends, positions, the cursor, and searching.
#include "zof_test.h"

#include <string>

static const char *const letters[] = {"a", "b", "c", "d", "e"};

static void *data(int index) {
    return (void *)letters[index];
}

// Forwards, after checking that the links backwards tell the same.
static std::string content(db_list *list) {
    std::string out;
    for (db_node *node = list->head->next; node != list->head; node = node->next) {
        CHECK(node->next->prev == node);
        out += (const char *)node->data;
    }
    CHECK(list->count == (s32)out.size());
    return out;
}

TEST_CASE("a list keeps order at both ends and at positions, searches miss its last element, and its cursor cycles") {
    u32 before = zof_mem_count();
    db_list *list = db_list_create();
    CHECK(__db_list_insert_before(list, 1, data(0)) == -1);
    CHECK(__db_list_insert_after(list, 0, data(1)) == 0);
    CHECK(__db_list_put_tail(list, data(2)) == 0);
    CHECK(__db_list_put_head(list, data(0)) == 0);
    CHECK(__db_list_insert_after(list, 1, data(3)) == 0);
    CHECK(__db_list_insert_before(list, 4, data(4)) == 0);
    CHECK(content(list) == "dabec");
    CHECK((__db_list_insert_before(list, 0, data(0)) == -1 && __db_list_insert_after(list, 6, data(0)) == -1));
    CHECK((__db_list_visit(list, 5) == nullptr && __db_list_visit(list, -1) == nullptr));
    CHECK((__db_list_visit_and_pop(list, 4) == data(2) && __db_list_pop(list) == data(3)));
    CHECK(content(list) == "abe");

    CHECK(__db_list_search(list, data(1)) == -1); // nothing compares them yet
    list->compare = [](void *of, void *key) { return of == key ? 0 : 1; };
    CHECK((__db_list_search(list, data(0)) == 1 && __db_list_search(list, data(4)) == -1));
    const auto next = [&] { return *(const char *)get_current_data(list); };
    CHECK(std::string{next(), next(), next(), next()} == "abea");
    put_current_in_position(list, 2);
    CHECK(next() == 'e');
    put_current_in_position(list, 0);
    CHECK(std::string{next(), next()} == "ab");
    CHECK(__db_list_search_and_pop(list, data(1)) == data(1));
    CHECK(next() == 'e');
    __db_list_clear(list);
    CHECK(get_current_data(list) == nullptr);
    __db_list_destory(list, nullptr);
    __db_list_destory(nullptr, nullptr);
    CHECK(zof_mem_count() == before);
}
