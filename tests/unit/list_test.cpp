// The list: ends, positions, the cursor, and searching.
#include "zof_test.h"

#include <vector>

static int values[5] = {10, 20, 30, 40, 50};

// Forwards, after checking that the links backwards tell the same.
static std::vector<int> content(db_list *list) {
    std::vector<int> out;
    for (db_node *node = list->head->next; node != list->head; node = node->next) {
        CHECK(node->next->prev == node);
        out.push_back(*static_cast<int *>(node->data));
    }
    CHECK(list->count == static_cast<s32>(out.size()));
    return out;
}

TEST_CASE("a list keeps order at both ends and at positions, and only its nodes are its own") {
    u32 before = zof_mem_count();
    db_list *list = db_list_create();
    CHECK(__db_list_insert_before(list, 1, &values[0]) == -1);
    CHECK(__db_list_insert_after(list, 0, &values[1]) == 0);
    CHECK(__db_list_put_tail(list, &values[2]) == 0);
    CHECK(__db_list_put_head(list, &values[0]) == 0);
    CHECK(__db_list_insert_after(list, 1, &values[3]) == 0);
    CHECK(__db_list_insert_before(list, 4, &values[4]) == 0);
    CHECK(content(list) == std::vector<int>{40, 10, 20, 50, 30});
    CHECK((__db_list_insert_before(list, 0, &values[0]) == -1 && __db_list_insert_after(list, 6, &values[0]) == -1));
    CHECK((__db_list_visit(list, 5) == nullptr && __db_list_visit(list, -1) == nullptr));
    CHECK(__db_list_visit_and_pop(list, 4) == &values[2]);
    CHECK(__db_list_pop(list) == &values[3]);
    CHECK(content(list) == std::vector<int>{10, 20, 50});
    static int sum = 0;
    __db_list_destory(list, [](void *data) { sum += *static_cast<int *>(data); });
    CHECK((sum == 80 && zof_mem_count() == before));
    __db_list_destory(nullptr, nullptr);
    CHECK(__db_list_search(nullptr, &values[0]) == -1);
}

TEST_CASE("a search counts from the sentinel and misses the last element, and the cursor cycles and steps back") {
    db_list *list = db_list_create();
    for (int i = 0; i < 3; i++) {
        __db_list_put_tail(list, &values[i]);
    }
    CHECK((__db_list_search_node(list, &values[1]) == nullptr && __db_list_search(list, &values[1]) == -1));
    list->compare = [](void *data, void *key) { return data == key ? 0 : 1; };
    CHECK((__db_list_search(list, &values[0]) == 1 && __db_list_search(list, &values[2]) == -1));
    auto next = [&] { return *static_cast<int *>(get_current_data(list)); };
    CHECK(std::vector<int>{next(), next(), next(), next()} == std::vector<int>{10, 20, 30, 10});
    put_current_in_position(list, 2);
    CHECK(next() == 30);
    put_current_in_position(list, 0);
    CHECK(std::vector<int>{next(), next()} == std::vector<int>{10, 20});
    CHECK(__db_list_search_and_pop(list, &values[1]) == &values[1]);
    CHECK(next() == 30);
    list->compare = [](void *data, void *) { return data ? 1 : 0; };
    CHECK(__db_list_search(list, &values[0]) == 0);
    __db_list_clear(list);
    CHECK(get_current_data(list) == nullptr);
    __db_list_destory(list, nullptr);
}
