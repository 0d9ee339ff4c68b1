#include "zof_test.h"

#include <string>

static std::string content(const pipo_half *half) {
    return {half->read, half->read + half->t_len + half->len};
}

TEST_CASE("a chunk or a tail that does not fit is dropped whole, and the half that a client holds stays intact") {
    pipo_buff *b = pipo_buff_create(4, 2);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"one", 3) == 0);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"xy", 2) == -1);
    CHECK(pipo_buff_set_pi(b, (const u8 *)"!", 1) == 0);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"a", 1) == 0);
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"bc", 2) == 0); // in place of the one before
    CHECK(pipo_buff_set_pi_topbuf(b, (const u8 *)"def", 3) == -1);
    pipo_half *held = pipo_buff_get_pi_and_switch(b);
    CHECK(pipo_buf_get_pi_len(b) == 0);
    pipo_buff_set_pi(b, (const u8 *)"two", 3);
    CHECK(content(held) == "bcone!");
    CHECK(content(pipo_buff_get_pi_and_switch(b)) == "two"); // its tail is gone
    CHECK(pipo_buff_delete(b) == 0);
    CHECK(pipo_buff_delete(nullptr) == -1);
}
