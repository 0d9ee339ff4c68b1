// The list: ends, positions, the cursor, and searching.
#include "zof_test.h"

#include <string>

static const char *const letters[] = {"a", "b", "c", "d", "e"};

static void *data(int index) {
    return (void *)letters[index];
}

// Returns the content forwards, after checking that the backward links match.
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

    CHECK(__db_list_search(list, data(1)) == -1); // no compare function yet
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

static int compared;

static u32 number_of(const void *data) {
    return *(const u16 *)data;
}

// Two lists of the same elements, one of them with numbers: after the same operations both find the same elements.
TEST_CASE("a list with numbers finds the same as one without, and compares only equal numbers") {
    const u32 before = zof_mem_count();
    static u16 numbers[1000];
    db_list *lists[] = {db_list_create(), db_list_create()};
    for (db_list *list : lists) {
        list->compare = [](void *of, void *key) {
            compared++;
            return of && *(const u16 *)of == *(const u32 *)key ? 0 : 1;
        };
    }
    lists[1]->number = number_of;
    const auto same = [&](u32 key) {
        CHECK(__db_list_search_node(lists[0], &key) == __db_list_search_node(lists[1], &key));
    };
    for (u32 i = 0; i < 1000; i++) {
        numbers[i] = (u16)(i * 65);
        for (db_list *list : lists) {
            CHECK((i % 2 ? __db_list_put_tail(list, &numbers[i]) : __db_list_put_head(list, &numbers[i])) == 0);
        }
        same(numbers[i / 2]);
    }
    for (u32 key = 0; key < 65000; key += 39) {
        same(key);
        if (key % 2) {
            CHECK(__db_list_search_and_pop(lists[0], &key) == __db_list_search_and_pop(lists[1], &key));
            same(key);
        }
    }
    CHECK(__db_list_visit_and_pop(lists[0], 7) == __db_list_visit_and_pop(lists[1], 7));
    same(65536 + 65);
    compared = 0;
    u32 key = 130;
    CHECK((__db_list_search_node(lists[1], &key) == &numbers[2] && compared == 0));
    for (db_list *list : lists) { // a second one with this number: the first in the list is found
        static u16 second = 130;
        CHECK(__db_list_put_head(list, &second) == 0);
        CHECK((__db_list_search_and_pop(list, &key) == &second && __db_list_search_node(list, &key) == &numbers[2]));
        __db_list_clear(list);
        CHECK(__db_list_search_node(list, &key) == nullptr);
        __db_list_destory(list, nullptr);
    }
    CHECK(zof_mem_count() == before);
}
