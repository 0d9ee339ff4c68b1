// The reflection engine, rule by rule, on a record that has a field of every kind.
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
    double real;
    zof_bool flag;
    u8 small_flag;
    char *text;
    zof_point_t point;
    u16 item_count;
    item_t *items;
    u8 number_count;
    s32 *numbers;
    u32 text_count;
    char **texts;
    u32 flag_count;
    zof_bool *flags;
    u32 real_count;
    double *reals;
    s32 decode_only;
    s32 encode_only;
};

// An element without its number is a bad one.
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
    CSON_DOUBLE(record_t, real),
    CSON_BOOL(record_t, flag),
    CSON_BOOL(record_t, small_flag),
    CSON_TEXT(record_t, text),
    CSON_OBJ(record_t, point, zof_point_t_tbl),
    CSON_INT(record_t, item_count),
    CSON_ARR(record_t, items, item_tbl, sizeof(item_t), "item_count"),
    CSON_INT(record_t, number_count),
    CSON_ARR(record_t, numbers, integerReflectTbl, sizeof(s32), "number_count"),
    CSON_INT(record_t, text_count),
    CSON_ARR(record_t, texts, stringReflectTbl, sizeof(char *), "text_count"),
    CSON_INT(record_t, flag_count),
    CSON_ARR(record_t, flags, boolReflectTbl, sizeof(zof_bool), "flag_count"),
    CSON_INT(record_t, real_count),
    CSON_ARR(record_t, reals, realReflectTbl, sizeof(double), "real_count"),
    {"decode_only", offsetof(record_t, decode_only), 4, CSON_INTEGER, 0, 0, 0, CSON_NULLABLE | CSON_SKIP_ENCODE},
    {"encode_only", offsetof(record_t, encode_only), 4, CSON_INTEGER, 0, 0, 0, CSON_NULLABLE | CSON_SKIP_DECODE},
    CSON_END,
};

static s32 decode(const char *text, void *record, const reflect_item_t *table) {
    cJSON *json = cJSON_Parse(text);
    REQUIRE(json);
    s32 result = csonJsonStr2Struct(json, record, table);
    cJSON_Delete(json);
    return result;
}

static record_t decoded(const char *text) {
    record_t record = {};
    CHECK(decode(text, &record, record_tbl) == CSON_OK);
    return record;
}

// The code of one row alone, taken as not nullable.
static s32 row_result(const char *key, const char *text, record_t *record) {
    reflect_item_t table[] = {CSON_END, CSON_END, CSON_END};
    s32 rows = 0;
    for (const reflect_item_t *row = record_tbl; row->key; row++) {
        bool wanted = std::strcmp(row->key, key) == 0;
        bool count = std::strstr(row->key, "_count") && std::strncmp(row->key, key, 4) == 0;
        if (wanted || count) {
            table[rows] = *row;
            table[rows++].flags = wanted ? 0 : static_cast<size_t>(CSON_SKIP_DECODE);
        }
    }
    return decode(text, record, table);
}

TEST_CASE("integers are cut towards zero, bounded by their width, and left alone when they do not fit") {
    struct {
        const char *json;
        s64 i8, i16, i32, i64;
        s32 result8, result16, result32, result64;
    } rows[] = {
        {"3.9", 3, 3, 3, 3, 0, 0, 0, 0},
        {"-3.9", -3, 0xFFFD, 0xFFFFFFFD, -3, 0, 0, 0, 0},
        {"255", -1, 255, 255, 255, 0, 0, 0, 0},
        {"256", 7, 256, 256, 256, -6, 0, 0, 0},
        {"-129", 7, 0xFF7F, 0xFFFFFF7F, -129, -6, 0, 0, 0},
        {"65535", 7, 65535, 65535, 65535, -6, 0, 0, 0},
        {"65536", 7, 7, 65536, 65536, -6, -6, 0, 0},
        {"2147483647", 0, 0, 0, 0, 0, 0, 0, 0}, // what the project tools write for "not set"
        {"2147483648", 7, 7, 2147483648, 2147483648, -6, -6, 0, 0},
        {"4294967295", 7, 7, 4294967295, 4294967295, -6, -6, 0, 0},
        {"4294967296", 7, 7, 7, 4294967296, -6, -6, -6, 0},
        {"-2147483649", 7, 7, 7, -2147483649, -6, -6, -6, 0},
        {"9223372036854775808", 7, 7, 7, 7, -6, -6, -6, -6},
        {"-9223372036854775808", 7, 7, 7, INT64_MIN, -6, -6, -6, 0},
        {"1e300", 7, 7, 7, 7, -6, -6, -6, -6},
        {"true", 7, 7, 7, 7, -2, -2, -2, -2},
        {"\"5\"", 7, 7, 7, 7, -2, -2, -2, -2},
        {"null", 7, 7, 7, 7, -2, -2, -2, -2},
    };
    for (const auto &row : rows) {
        CAPTURE(row.json);
        record_t record = {};
        record.i8 = record.i16 = 7;
        record.i32 = record.i64 = 7;
        std::string v = row.json;
        CHECK(row_result("i8", ("{\"i8\":" + v + "}").c_str(), &record) == row.result8);
        CHECK(row_result("i16", ("{\"i16\":" + v + "}").c_str(), &record) == row.result16);
        CHECK(row_result("i32", ("{\"i32\":" + v + "}").c_str(), &record) == row.result32);
        CHECK(row_result("i64", ("{\"i64\":" + v + "}").c_str(), &record) == row.result64);
        CHECK(record.i8 == row.i8);
        CHECK(record.i16 == row.i16);
        CHECK(record.i32 == row.i32);
        CHECK(record.i64 == row.i64);
    }
}

TEST_CASE("booleans, reals and texts take only their own kind, and keys any case") {
    record_t record = decoded(R"({"FLAG": true, "small_flag": false, "Real": 2.5, "tExt": "a b"})");
    CHECK(record.flag == 1);
    CHECK(record.real == 2.5);
    CHECK(std::string(record.text) == "a b");
    csonFreePointer(&record, record_tbl);

    record = {};
    record.flag = 5;
    record.small_flag = 6;
    record.real = 7;
    char kept[] = "kept";
    record.text = kept;
    CHECK(decode(R"({"flag": 1, "small_flag": "true", "real": true, "text": 4})", &record, record_tbl) == CSON_OK);
    CHECK(decode(R"({})", &record, record_tbl) == CSON_OK);
    CHECK(record.flag == 5);
    CHECK(record.small_flag == 6);
    CHECK(record.real == 7);
    CHECK(record.text == kept);
    CHECK(row_result("flag", R"({"flag": 1})", &record) == CSON_ERR_TYPE);
    CHECK(row_result("flag", R"({"flags": true})", &record) == CSON_ERR_MISSING);
    CHECK(row_result("text", R"({"text": null})", &record) == CSON_ERR_TYPE);
}

TEST_CASE("a nested object overlays what is there, and a later text takes the place of an earlier") {
    record_t record = decoded(R"({"point": {"x": 3, "y": 4}, "text": "one", "encode_only": 1, "decode_only": 2})");
    CHECK(record.encode_only == 0);
    CHECK(record.decode_only == 2);
    char *first = record.text;
    CHECK(decode(R"({"point": {"y": 9}, "text": "two"})", &record, record_tbl) == CSON_OK);
    CHECK(record.point.x == 3);
    CHECK(record.point.y == 9);
    CHECK(std::string(first) == "one"); // not released: a style's text may be its theme's
    CHECK(std::string(record.text) == "two");
    zof_free(first);
    csonFreePointer(&record, record_tbl);
}

TEST_CASE("bad elements are dropped, good ones close up, and nothing of the bad ones stays") {
    u32 before = zof_mem_count();
    record_t record = decoded(R"({"items": [{"text": "a", "number": 1, "words": ["x", "y"]},
        {"text": "bad", "words": ["lost", "lost"]}, 17, {"number": 3}], "numbers": [1, "two", null, 3, true],
        "texts": ["a", 5, "b"], "flags": [true, "no", false], "reals": [1.5, "x", null, 2]})");
    CHECK(record.item_count == 2);
    CHECK(std::string(record.items[0].text) == "a");
    CHECK(record.items[0].word_count == 2);
    CHECK(std::string(record.items[0].words[1]) == "y");
    CHECK(record.items[1].number == 3);
    CHECK(record.items[1].text == nullptr);
    CHECK(record.items[1].words == nullptr);
    CHECK(record.items[1].word_count == 0);
    CHECK(record.number_count == 3);
    CHECK(record.numbers[1] == 3);
    CHECK(record.numbers[2] == 1);
    CHECK(record.text_count == 2);
    CHECK(std::string(record.texts[1]) == "b");
    CHECK(record.flag_count == 2);
    CHECK(record.flags[0] == 1);
    CHECK(record.real_count == 2);
    CHECK(record.reals[1] == 2);
    csonFreePointer(&record, record_tbl);
    CHECK(zof_mem_count() == before);
    CHECK(record.texts == nullptr);
    csonFreePointer(&record, record_tbl); // the counts still stand, the arrays are gone
}

TEST_CASE("empty, wholly bad and too long arrays leave no array") {
    record_t record = {};
    s32 number = 0;
    record.numbers = &number;
    record.number_count = 9;
    CHECK(row_result("numbers", R"({"numbers": []})", &record) == CSON_OK);
    CHECK(record.number_count == 0);
    CHECK(record.numbers == &number);
    record.number_count = 9;
    CHECK(row_result("numbers", R"({"numbers": ["a", {}]})", &record) == CSON_ERR_MISSING);
    CHECK(record.number_count == 0);
    CHECK(record.numbers == nullptr);

    u32 before = zof_mem_count();
    std::string many = R"({"words": [)";
    for (int i = 0; i < 256; i++) {
        many += "\"w\",";
    }
    item_t item = {};
    CHECK(decode((many + R"("w"], "number": 1})").c_str(), &item, item_tbl) == CSON_OK);
    CHECK(item.word_count == 0);
    CHECK(item.words == nullptr);
    CHECK(zof_mem_count() == before);

    static const reflect_item_t no_count[] = {CSON_ARR(record_t, numbers, integerReflectTbl, 4, "lost"), CSON_END};
    CHECK(contains(printed([&] { decode(R"({"numbers": [1]})", &record, no_count); }), "Can not find field:lost."));
    CHECK(contains(printed([&] { decode(R"({"numbers": []})", &record, no_count); }), "Can not find field:lost."));
    CHECK(contains(printed([&] { csonFreePointer(&record, no_count); }), "Can not find field:lost."));
    CHECK(record.numbers == nullptr);
}

TEST_CASE("a row that is not nullable ends the record, after the rows before it") {
    zof_pub_attr_t pub = {};
    CHECK(decode(R"({"id": 5, "hidden": true})", &pub, zof_pub_attr_t_tbl) == CSON_ERR_MISSING);
    CHECK(pub.id == 5);
    CHECK(pub.hidden == 1);
    CHECK(pub.alpha == 0);
    zof_label_attr_t label = {};
    CHECK(decode(R"({"pub_t": {"id": 5}, "animspeed": 9})", &label, zof_label_attr_t_tbl) == CSON_OK);
    CHECK(label.animspeed == 9);
}

TEST_CASE("null, odd widths and the null kind are failures, not faults") {
    record_t record = {};
    cJSON *json = cJSON_Parse(R"({"real": 1, "i32": null, "numbers": [1]})");
    CHECK(csonJsonStr2Struct(nullptr, &record, record_tbl) == CSON_ERR_NO_JSON);
    CHECK(csonJsonStr2Struct(json, nullptr, record_tbl) == CSON_ERR_ARGUMENT);
    CHECK(csonJsonStr2Struct(json, &record, nullptr) == CSON_ERR_ARGUMENT);
    CHECK(csonFreePointer(nullptr, record_tbl) == CSON_ERR_ARGUMENT);
    CHECK(csonLoopProperty(&record, record_tbl, nullptr) == CSON_ERR_ARGUMENT);
    for (const auto *table : {(const void *)jsonObjProcTbl[CSON_NULL], (const void *)jsonPackTbl[CSON_NULL],
                              (const void *)jsonObjDefaultTbl[CSON_NULL]}) {
        CHECK(table == nullptr);
    }
    static const reflect_item_t null_row[] = {{"i32", offsetof(record_t, i32), 4, CSON_NULL, 0, 0, 0, 0}, CSON_END};
    static const reflect_item_t half_real[] = {{"real", offsetof(record_t, real), 4, CSON_REAL, 0, 0, 0, 0}, CSON_END};
    static const reflect_item_t three_bytes[] = {{"real", offsetof(record_t, i32), 3, CSON_INTEGER, 0, 0, 0, 0},
                                                 CSON_END};
    static const reflect_item_t odd_bool[] = {{"real", offsetof(record_t, i32), 3, CSON_TRUE, 0, 0, 0, 0}, CSON_END};
    static const reflect_item_t null_element[] = {{"0Null", 0, 4, CSON_NULL, 0, 0, 0, 0}, CSON_END};
    static const reflect_item_t null_array[] = {
        CSON_INT(record_t, number_count),
        {"numbers", offsetof(record_t, numbers), 8, CSON_ARRAY, null_element, 4, "number_count", 0},
        CSON_END};
    CHECK(csonJsonStr2Struct(json, &record, null_row) == CSON_ERR_TYPE);
    CHECK(csonJsonStr2Struct(json, &record, three_bytes) == CSON_ERR_RANGE);
    CHECK(csonJsonStr2Struct(json, &record, null_array) == CSON_ERR_MISSING);
    std::string log = printed([&] {
        CHECK(csonJsonStr2Struct(json, &record, half_real) == CSON_ERR_RANGE);
        char *text = nullptr;
        CHECK(csonStruct2JsonStr(&text, &record, half_real) == CSON_ERR_RANGE);
        CHECK(csonStruct2JsonStr(&text, &record, three_bytes) == CSON_ERR_RANGE);
        CHECK(csonStruct2JsonStr(&text, &record, odd_bool) == CSON_ERR_RANGE);
        CHECK(csonStruct2JsonStr(&text, &record, null_row) == CSON_ERR_TYPE);
        CHECK(csonStruct2JsonStr(nullptr, &record, record_tbl) == CSON_ERR_ARGUMENT);
        CHECK(text == nullptr);
    });
    CHECK(contains(log, "Unsupported size(=4) of real.\n"));
    CHECK(contains(log, "Please check if the type of field real is double!\n"));
    CHECK(contains(log, "Unsupported size(=3) of integer.\n"));
    CHECK(contains(log, "Unsupported size(=3) of bool.\n"));
    CHECK(contains(log, "Please check if the type of field real in char/short/int/long long!\n"));
    CHECK(contains(log, "!!!!pack error on field:i32, cod=-2!!!!\n"));
    CHECK(contains(printed([] { CHECK(csomImpl.loadb("{\"a\": x}", 8) == nullptr); }), "parse stop with:x}\n"));
    cJSON_Delete(json);
}

TEST_CASE("a record that is encoded and decoded again is the same") {
    const char *source = R"({"i8":-5,"i16":300,"i32":-1,"i64":-9000000000,"real":0.25,"flag":true,"small_flag":true,)"
                         R"("text":"t","point":{"x":1,"y":-2},"item_count":1,"items":[{"text":"a","word_count":1,)"
                         R"("words":["w"],"number":4}],"number_count":2,"numbers":[7,-8],"text_count":1,"texts":["x"],)"
                         R"("flag_count":2,"flags":[true,false],"real_count":1,"reals":[1.5],"encode_only":0})";
    u32 before = zof_mem_count();
    record_t record = decoded(source);
    char *text = nullptr;
    CHECK(csonStruct2JsonStr(&text, &record, record_tbl) == CSON_OK);
    // A two-byte field is read with its sign, whatever it was declared as; 300 has none.
    CHECK(std::string(text ? text : "") == source);
    cJSON_free(text);
    csonFreePointer(&record, record_tbl);
    CHECK(zof_mem_count() == before);
}

TEST_CASE("what cannot be encoded is left out, or ends the call and leaves the tree as it was") {
    record_t record = {};
    record.real_count = 1;
    double real = 1;
    record.reals = &real;
    char *texts[] = {nullptr, nullptr};
    record.texts = texts;
    record.text_count = 2;
    cJSON *json = cJSON_CreateObject();
    std::string log = printed([&] { CHECK(csonStruct2JsonObj(json, &record, record_tbl) == CSON_OK); });
    CHECK(contains(log, "!!!!pack error on field:text, cod=-3!!!!\n"));
    CHECK(contains(log, "create array item faild.\n"));
    CHECK(!cJSON_HasObjectItem(json, "text"));
    CHECK(!cJSON_HasObjectItem(json, "texts"));
    CHECK(!cJSON_HasObjectItem(json, "decode_only"));
    CHECK(cJSON_HasObjectItem(json, "encode_only"));
    cJSON_Delete(json);

    static const reflect_item_t strict[] = {CSON_INT(record_t, i32),
                                            {"text", offsetof(record_t, text), 8, CSON_STRING, 0, 0, 0, 0},
                                            CSON_INT(record_t, i64),
                                            CSON_END};
    static const reflect_item_t outer[] = {
        CSON_INT(record_t, i8), {"inner", 0, 0, CSON_OBJECT, strict, 0, 0, 0}, CSON_END};
    json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "own", 1);
    printed([&] { CHECK(csonStruct2JsonObj(json, &record, outer) == CSON_ERR_MISSING); });
    CHECK(cJSON_GetArraySize(json) == 1);
    static const reflect_item_t empty[] = {CSON_END};
    CHECK(csonStruct2JsonObj(json, &record, empty) == CSON_OK);
    CHECK(csonStruct2JsonObj(nullptr, &record, empty) == CSON_ERR_ARGUMENT);
    cJSON_Delete(json);
}

TEST_CASE("printing reads a narrow field at its width and a null text as an empty one") {
    record_t record = decoded(R"({"i8": -3, "i16": 12, "real": 1.5, "flag": true, "texts": ["x"]})");
    std::memset(&record.i8 + 1, 0x7E, 1); // the byte behind it is not part of the field
    std::string log = printed([&] { csonPrintProperty(&record, record_tbl); });
    for (const char *line : {"i8:-3\n", "i16:12\n", "real:1.500000\n", "flag:1\n", "text:\n", "0String:x\n", "x:0\n"}) {
        CAPTURE(line);
        CHECK(contains(log, line));
    }
    csonFreePointer(&record, record_tbl);
    CHECK(printfstruct(nullptr) == -1);
}
