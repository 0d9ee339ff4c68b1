// The reflection engine, rule by rule, on a record with a field of every kind.
#include "temp_project.h"
#include "zof_test.h"

#include <cstring>

#include "zof_lib/zof_cson_in.h"

struct item_t {
    char *text;
    s32 number;
    char **words;
    u8 word_count;
};

struct record_t {
    s8 i8;
    u16 i16;
    u32 i32;
    s64 i64;
    zof_bool flag;
    double real;
    char *text;
    zof_point_t point;
    u16 item_count;
    item_t *items;
    u8 number_count;
    s32 *numbers;
    s32 decode_only, encode_only;
};

// An element without its number is invalid.
static const reflect_item_t item_tbl[] = {
    CSON_TEXT(item_t, text),
    CSON_INT(item_t, word_count),
    CSON_ARR(item_t, words, stringReflectTbl, sizeof(char *), "word_count"),
    {"number", offsetof(item_t, number), 4, CSON_INTEGER, 0, 0, 0, 0},
    CSON_END,
};

static const reflect_item_t record_tbl[] = {
    CSON_INT(record_t, i8),
    CSON_INT(record_t, i16),
    CSON_INT(record_t, i32),
    CSON_INT(record_t, i64),
    CSON_BOOL(record_t, flag),
    CSON_DOUBLE(record_t, real),
    CSON_TEXT(record_t, text),
    CSON_OBJ(record_t, point, zof_point_t_tbl),
    CSON_INT(record_t, item_count),
    CSON_ARR(record_t, items, item_tbl, sizeof(item_t), "item_count"),
    CSON_INT(record_t, number_count),
    CSON_ARR(record_t, numbers, integerReflectTbl, sizeof(s32), "number_count"),
    {"decode_only", offsetof(record_t, decode_only), 4, CSON_INTEGER, 0, 0, 0, CSON_NULLABLE | CSON_SKIP_ENCODE},
    {"encode_only", offsetof(record_t, encode_only), 4, CSON_INTEGER, 0, 0, 0, CSON_NULLABLE | CSON_SKIP_DECODE},
    CSON_END,
};

static s32 decode(const std::string &text, void *record, const reflect_item_t *table) {
    cJSON *json = cJSON_Parse(text.c_str());
    REQUIRE(json);
    s32 result = csonJsonStr2Struct(json, record, table);
    cJSON_Delete(json);
    return result;
}

// Returns the result of a single row, decoded as not nullable.
static s32 row_result(u32 row, const std::string &value, record_t *record) {
    reflect_item_t table[] = {record_tbl[row], CSON_END};
    table[0].flags = 0;
    return decode(std::string("{\"") + table[0].key + "\":" + value + "}", record, table);
}

TEST_CASE("integers are truncated towards zero, limited to their width, and unchanged when they do not fit") {
    const struct {
        const char *json;
        s32 fault;
        s64 want[4]; // 7 is the old value
    } rows[] = {
        {"3.9", 0, {3, 3, 3, 3}},
        {"-3.9", 0, {-3, 0xFFFD, 0xFFFFFFFD, -3}},
        {"255", 0, {-1, 255, 255, 255}},
        {"256", CSON_ERR_RANGE, {7, 256, 256, 256}},
        {"-129", CSON_ERR_RANGE, {7, 0xFF7F, 0xFFFFFF7F, -129}},
        {"2147483647", 0, {0, 0, 0, 0}}, // written by the project tools for "not set"
        {"4294967296", CSON_ERR_RANGE, {7, 7, 7, 4294967296}},
        {"9223372036854775808", CSON_ERR_RANGE, {7, 7, 7, 7}},
        {"-9223372036854775808", CSON_ERR_RANGE, {7, 7, 7, INT64_MIN}},
        {"\"5\"", CSON_ERR_TYPE, {7, 7, 7, 7}},
    };
    for (const auto &row : rows) {
        for (u32 i = 0; i < 4; i++) {
            CAPTURE(row.json);
            CAPTURE(record_tbl[i].key);
            record_t record = {.i8 = 7, .i16 = 7, .i32 = 7, .i64 = 7};
            CHECK(row_result(i, row.json, &record) == (row.want[i] == 7 ? row.fault : CSON_OK));
            const s64 got[] = {record.i8, record.i16, record.i32, record.i64};
            CHECK(got[i] == row.want[i]);
        }
    }
}

TEST_CASE("fields accept only their own kind, keys are not case-sensitive, and later values override earlier ones") {
    record_t record = {};
    CHECK(decode(R"({"FLAG": true, "Real": 2.5, "tExt": "one", "point": {"x": 3, "y": 4}, "encode_only": 1})", &record,
                 record_tbl) == CSON_OK);
    char *first = record.text;
    CHECK(decode(R"({"flag": "no", "real": true, "text": 4, "point": {"y": 9}})", &record, record_tbl) == CSON_OK);
    CHECK((record.flag == 1 && record.real == 2.5 && record.text == first && record.encode_only == 0));
    CHECK((record.point.x == 3 && record.point.y == 9));
    CHECK(row_result(4, "1", &record) == CSON_ERR_TYPE);
    CHECK(row_result(6, R"("two")", &record) == CSON_OK);
    CHECK(str(first) == "one"); // not released: a style's text may be its theme's
    zof_free(first);
    csonFreePointer(&record, record_tbl);
    zof_pub_attr_t pub = {}; // a row that is not nullable ends the record, after the rows before it
    CHECK(decode(R"({"id": 5, "hidden": true})", &pub, zof_pub_attr_t_tbl) == CSON_ERR_MISSING);
    CHECK(pub.id == 5);
}

TEST_CASE("bad elements are dropped, good ones close the gap, and an array without good elements is null") {
    u32 before = zof_mem_count();
    record_t record = {};
    CHECK(decode(R"({"items": [{"text": "a", "number": 1, "words": ["x", 5, "y"]}, {"text": "bad", "words": ["lost"]},
        17, {"number": 3}], "numbers": [1, "two", null, 3, true]})",
                 &record, record_tbl) == CSON_OK);
    REQUIRE(record.item_count == 2);
    CHECK((record.items[0].word_count == 2 && str(record.items[0].words[1]) == "y"));
    CHECK((record.items[1].number == 3 && !record.items[1].text && !record.items[1].words));
    CHECK(std::vector<s32>(record.numbers, record.numbers + record.number_count) == std::vector<s32>{1, 3, 1});
    csonFreePointer(&record, record_tbl);
    csonFreePointer(&record, record_tbl); // the counts remain, the arrays are released
    item_t item = {};
    std::string many = R"("w")";
    for (int i = 0; i < 256; i++) {
        many += R"(,"w")";
    }
    CHECK(decode(R"({"words": [)" + many + R"(], "number": 1})", &item, item_tbl) == CSON_OK);
    CHECK((item.word_count == 0 && item.words == nullptr && zof_mem_count() == before));

    s32 number = 0;
    record.numbers = &number;
    static const reflect_item_t strict[] = {
        CSON_INT(record_t, number_count),
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, integerReflectTbl, 4, "number_count", 0},
        CSON_END};
    CHECK(decode(R"({"numbers": []})", &record, strict) == CSON_OK);
    CHECK((record.number_count == 0 && record.numbers == &number));
    CHECK(decode(R"({"numbers": ["a", {}]})", &record, strict) == CSON_ERR_MISSING);
    CHECK((record.number_count == 0 && record.numbers == nullptr));
}

TEST_CASE("values of a bad element do not leak into the next one") {
    struct part_t {
        zof_point_t point;
        double real;
        zof_bool flag;
        s32 number;
    };
    struct parts_t {
        u32 count;
        part_t *parts;
    } record = {};
    static const reflect_item_t part_tbl[] = {CSON_OBJ(part_t, point, zof_point_t_tbl),
                                              CSON_DOUBLE(part_t, real),
                                              CSON_BOOL(part_t, flag),
                                              {"number", offsetof(part_t, number), 4, CSON_INTEGER, 0, 0, 0, 0},
                                              CSON_END};
    static const reflect_item_t parts_tbl[] = {CSON_INT(parts_t, count),
                                               CSON_ARR(parts_t, parts, part_tbl, sizeof(part_t), "count"), CSON_END};
    CHECK(decode(R"({"parts": [{"point": {"x": 1, "y": 2}, "real": 3, "flag": true}, {"number": 4}]})", &record,
                 parts_tbl) == CSON_OK);
    REQUIRE(record.count == 1);
    const part_t *part = &record.parts[0];
    CHECK((part->point.x == 0 && part->point.y == 0 && part->real == 0 && !part->flag && part->number == 4));
    csonFreePointer(&record, parts_tbl);
}

TEST_CASE("a count that fills its byte is encoded and released, and long arrays decode in linear time") {
    const u32 before = zof_mem_count();
    std::string words = R"("w")";
    for (int i = 1; i < 200; i++) {
        words += R"(,"w")";
    }
    item_t item = {};
    CHECK(decode(R"({"words": [)" + words + R"(], "number": 1})", &item, item_tbl) == CSON_OK);
    CHECK(item.word_count == 200);
    char *text = nullptr;
    CHECK(csonStruct2JsonStr(&text, &item, item_tbl) == CSON_OK);
    CHECK(contains(text, "[" + words + "]"));
    cJSON_free(text);
    csonFreePointer(&item, item_tbl);
    CHECK(zof_mem_count() == before);

    struct long_t {
        u32 count;
        s32 *numbers;
    } many = {};
    static const reflect_item_t long_tbl[] = {
        CSON_INT(long_t, count), CSON_ARR(long_t, numbers, integerReflectTbl, sizeof(s32), "count"), CSON_END};
    std::string numbers = "{\"numbers\": [0";
    for (int i = 1; i < 200000; i++) { // 20 billion steps if each search started at the front
        numbers += ",1";
    }
    CHECK(decode(numbers + "]}", &many, long_tbl) == CSON_OK);
    CHECK(many.count == 200000);
    csonFreePointer(&many, long_tbl);
}

TEST_CASE("null, unsupported widths and the null kind fail cleanly") {
    record_t record = {};
    CHECK(csonJsonStr2Struct(nullptr, &record, record_tbl) == CSON_ERR_NO_JSON);
    CHECK(decode("{}", nullptr, record_tbl) == CSON_ERR_ARGUMENT);
    CHECK(csonFreePointer(nullptr, record_tbl) == CSON_ERR_ARGUMENT);
    CHECK(csonStruct2JsonStr(nullptr, &record, record_tbl) == CSON_ERR_ARGUMENT);
    for (const auto &[size, type] : {std::pair<u32, u32>{4, CSON_NULL}, {4, CSON_REAL}, {3, CSON_INTEGER}}) {
        const reflect_item_t table[] = {{"real", 0, size, type}, CSON_END};
        char *text = nullptr;
        printed([&] { CHECK(decode(R"({"real": 1})", &record, table) != CSON_OK); });
        printed([&] { CHECK(csonStruct2JsonStr(&text, &record, table) != CSON_OK); });
    }
}

TEST_CASE("arrays with an incomplete row fail cleanly") {
    static const reflect_item_t rows[] = {
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, integerReflectTbl, 4, nullptr, 0},
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, integerReflectTbl, 4, "number", 0},
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, nullptr, 4, "number_count", 0},
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, integerReflectTbl, 0, "number_count", 0}};
    for (const reflect_item_t &row : rows) {
        const reflect_item_t table[] = {CSON_INT(record_t, number_count), row, CSON_END};
        record_t record = {};
        printed([&] {
            CHECK(decode(R"({"numbers": [1]})", &record, table) != CSON_OK);
            CHECK(csonFreePointer(&record, table) == CSON_OK);
        });
        CHECK((record.number_count == 0 && !record.numbers));
    }
}

TEST_CASE("the JSON library is called only through its table") {
    void *root = nullptr;
    CHECK(contains(printed([&] { root = csomImpl.loadb("{\"a\": ?}", 8); }), "parse stop with:?}"));
    CHECK(root == nullptr);
    root = csomImpl.loadb("[7.9, \"x\", null]", 16);
    REQUIRE(csomImpl.array_size(root) == 3);
    CHECK((csomImpl.integer_value(csomImpl.array_get(root, 0)) == 7 && csomImpl.integer_value(nullptr) == 0));
    CHECK(csomImpl.real_value(csomImpl.array_get(root, 0)) == 7.9);
    CHECK(csomImpl.string_value(csomImpl.array_get(root, 2)) == nullptr);
    CHECK(csomImpl.array_get(root, 3) == nullptr);
    CHECK(csomImpl.object_get(root, "a") == nullptr);
    csomImpl.decref(root);
}

static const std::string source = R"({"i8":-5,"i16":300,"i32":-1,"i64":-9000000000,"flag":true,"real":0.25,"text":"t",)"
                                  R"("point":{"x":1,"y":-2},"item_count":1,"items":[{"text":"a","word_count":1,)"
                                  R"("words":["w"],"number":4}],"number_count":2,"numbers":[7,-8],"encode_only":0})";

TEST_CASE("without memory a record is incomplete but never has half a text or array, and nothing leaks") {
    cJSON_Hooks counted = {.malloc_fn = zof_malloc, .free_fn = zof_free};
    cJSON_InitHooks(&counted);
    const u32 before = zof_mem_count();
    u32 whole = 0;
    for (u32 fail_at = 1; whole == 0; fail_at++) {
        CAPTURE(fail_at);
        record_t record = {};
        char *text = nullptr;
        cJSON *json = cJSON_Parse(source.c_str());
        REQUIRE(json);
        printed([&] {
            zof_mem_fail_at(fail_at);
            csonJsonStr2Struct(json, &record, record_tbl);
            csonStruct2JsonStr(&text, &record, record_tbl);
            whole = zof_mem_fail_at(0) < fail_at;
        });
        CHECK((!record.text || str(record.text) == "t"));
        CHECK((!record.numbers || (record.number_count == 2 && record.numbers[1] == -8)));
        CHECK((!whole || str(text) == source));
        cJSON_free(text);
        cJSON_Delete(json);
        csonFreePointer(&record, record_tbl);
        CHECK(zof_mem_count() == before);
    }
    cJSON_InitHooks(nullptr);
}

TEST_CASE("a record is encoded as it was decoded, without null texts") {
    u32 before = zof_mem_count();
    record_t record = {};
    CHECK(decode(source, &record, record_tbl) == CSON_OK);
    record.decode_only = 2;
    char *text = nullptr;
    CHECK(csonStruct2JsonStr(&text, &record, record_tbl) == CSON_OK);
    CHECK(str(text) == source);
    cJSON_free(text);
    std::memset(&record.i8 + 1, 0x7E, 1); // the byte after it is not part of the field
    std::string log = printed([&] { csonPrintProperty(&record, record_tbl); });
    CHECK((contains(log, "i8:-5\n") && contains(log, "0String:w\n") && contains(log, "y:-2\n")));
    csonFreePointer(&record, record_tbl);
    CHECK(zof_mem_count() == before);

    char *words[] = {nullptr};
    item_t item = {.text = nullptr, .number = 3, .words = words, .word_count = 1};
    printed([&] { CHECK(csonStruct2JsonStr(&text, &item, item_tbl) == CSON_OK); });
    CHECK(str(text) == "{\"word_count\":1,\"number\":3}");
    cJSON_free(text);
}
