#include "zof_test.h"

#include <string>

static std::string content(const pipo_half *half) {
    return {half->read, half->read + half->t_len + half->len};
}

TEST_CASE("a chunk that does not fit is dropped whole, and the half that a client holds stays intact") {
    pipo_buff *b = pipo_buff_create(4, 0);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"one", 3) == 0);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"xy", 2) == -1);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"!", 1) == 0);
    pipo_half *held = pipo_buff_get_pi_and_switch(b);
    CHECK(pipo_buf_get_pi_len(b) == 0);
    pipo_buff_set_pi(b, (const u8 *)"two", 3);
    CHECK(content(held) == "one!");
    CHECK(content(pipo_buff_get_pi_and_switch(b)) == "two");
    CHECK(pipo_buff_delete(b) == 0);
    CHECK(pipo_buff_delete(nullptr) == -1);
}

TEST_CASE("one tail stands in front of the data, the last one given, and never more than fits") {
    pipo_buff *b = pipo_buff_create(16, 4);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"12345", 5) == -1);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"1234", 4) == 0);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"ab", 2) == 0);
    pipo_buff_set_pi(b, (const u8 *)"cd", 2);
    CHECK(content(pipo_buff_get_pi_and_switch(b)) == "abcd");
    pipo_buff_get_pi_and_switch(b);
    CHECK(content(b->cur).empty());
    pipo_buff_delete(b);
}
