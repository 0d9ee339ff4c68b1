// JSON with positions: faults, look-up, and changes of single values.
#include "zof_test.h"

#include <cmath>
#include <string>

#include "zof_lib/zof_jdoc.h"

struct doc_t {
    std::string text;
    zof_jdoc_t doc;
    s32 faults;

    explicit doc_t(const std::string &from) : text(from), faults(zof_jdoc_read(&doc, text.data(), text.size())) {
    }
    ~doc_t() {
        zof_jdoc_free(&doc);
    }
    doc_t(const doc_t &) = delete;
    doc_t &operator=(const doc_t &) = delete;
};

static std::string faults_of(const std::string &text) {
    doc_t d(text);
    std::string out;
    for (u32 i = 0; i < d.doc.fault_count; i++) {
        u32 line, col;
        zof_jdoc_place(&d.doc, d.doc.faults[i].at, &line, &col);
        out += (i ? "; " : "") + std::to_string(line) + ":" + std::to_string(col) + " " + d.doc.faults[i].rule + ": " +
               d.doc.faults[i].text;
    }
    return out;
}

TEST_CASE("each fault is reported at its position with what was expected") {
    static const struct {
        const char *text, *faults;
    } rows[] = {
        {"{\"a\": [1, 2.5e-3, true, null], \"\": \"\\u20AC\\n\"}\n", ""},
        {"", "1:1 syntax: the file is empty"},
        {"{\n  \"a\": 1\n  \"b\": 2,\n  \"c\" 3}",
         "3:3 syntax: expected \",\"; 4:7 syntax: expected \":\", found \"3\""},
        {"{\"a\": 1 b}", "1:9 syntax: expected \",\" or \"}\", found \"b\""},
        {"[1, [2", "1:7 syntax: expected \",\" or \"]\", found the end of the file; the array began at 1:5"},
        {"[1,, 2]", "1:4 syntax: expected a value, found \",\""},
        {"{a: 1}", "1:2 syntax: keys are written in double quotes"},
        {"{\"a\": 'b'}", "1:7 syntax: texts are written in double quotes"},
        {"{\"a\": True}", "1:7 syntax: true is written in lower case"},
        {"[\xE2]", "1:2 encoding: byte E2 is not UTF-8; the file must be saved as UTF-8; "
                   "1:2 syntax: expected a value, found byte E2"},
        {"[\xE2\x80\x9C"
         "a]",
         "1:2 syntax: expected a value, found \"\xE2\x80\x9C\""},
        {"{\"a\": \"b,\n \"c\": 1}", "1:7 syntax: the text does not end on its line; is a quote missing?"},
        {"{\"a\": \"b\n c\", \"d\": x}",
         "1:7 strict: a line break in a text is written \\n; 2:11 syntax: expected a value, found \"x\""},
        {"[092, -0.5, 0, 1., -.5e3, 10]",
         "1:2 strict: a number does not begin with 0; 1:16 strict: a number has digits before and after its point; "
         "1:20 strict: a number has digits before and after its point"},
        {"[0xD9863D]", "1:2 syntax: a colour is written \"#D9863D\""},
        {"[0xD9]", "1:2 syntax: numbers are decimal"},
        {"{\"a\": 1,\n\"b\": {\"c\": 2,\n{}]", "3:1 syntax: expected a key, found \"{\"; the object began at 2:6"},
        {"{\"a\": \"b}", "1:7 syntax: the text has no end; is a quote missing?"},
        {"[\"C:\\temp\\x\"]", "1:10 syntax: invalid escape; a backslash is written \"\\\\\""},
        {"[\"\\u12x4\"]", "1:3 escape: \\u needs four hexadecimal digits other than 0000; the text ends here"},
        {"{\"a\": 1, // one\n /* two */ \"b\": [1,],\n}",
         "1:10 comment: JSON has no comments; 2:2 comment: JSON has no comments; "
         "2:19 comma: no comma may follow the last element; 2:21 comma: no comma may follow the last member"},
        {"\xEF\xBB\xBF{}", "1:1 mark: the file begins with a byte order mark"},
        {"\xFF\xFE{", "1:1 encoding: the file is saved as UTF-16; it must be saved as UTF-8"},
        {"{\"a\": \"\xFC\"}", "1:8 encoding: byte FC is not UTF-8; the file must be saved as UTF-8"},
        {"{}}", "1:3 syntax: text after the end of the object"},
    };
    for (const auto &row : rows) {
        CAPTURE(row.text);
        CHECK(faults_of(row.text) == row.faults);
    }
    std::string comments;
    for (int i = 0; i < 100; i++) {
        comments += "#\n";
    }
    const std::string many = faults_of(comments + "x"); // the fault that ends reading is kept
    CHECK(many.substr(many.rfind(';')) == "; 101:1 syntax: expected a value, found \"x\"");
}

TEST_CASE("nested values are read up to the runtime's depth limit, and deeper ones are refused") {
    for (const auto &[depth, good] : {std::pair(1000, true), {1001, false}, {300000, false}}) {
        doc_t d(std::string((size_t)depth, '[') + "1");
        CHECK((std::string(d.doc.faults[0].text) == "too many objects and arrays in each other") == !good);
        CHECK(d.doc.count == (good ? 1001 : 1000));
        CHECK(d.doc.nodes[0].end == (good ? depth + 1 : 1000));
    }
}

TEST_CASE("keys, texts and numbers are found and decoded") {
    doc_t d("{\"A\\u0062\": [{\"n\": -1.5e2}, [\"\\ud83d\\ude00\\\"\", 1e999]], \"ab\": 7}");
    REQUIRE(d.faults == 0);
    const u32 first = zof_jdoc_get(&d.doc, 0, "aB");
    CHECK((first == 1 && zof_jdoc_find(&d.doc, 0, "ab") == 1)); // the first one counts
    char text[8];
    CHECK(zof_jdoc_key(&d.doc, first, text, sizeof text) == 2);
    CHECK(std::string(text) == "Ab");
    double number = 0;
    CHECK((zof_jdoc_number(&d.doc, zof_jdoc_find(&d.doc, 0, "ab[0].n"), &number) == 0 && number == -150));
    CHECK((zof_jdoc_number(&d.doc, zof_jdoc_find(&d.doc, first, "[1][1]"), &number) == 0 && number == HUGE_VAL));
    const u32 face = zof_jdoc_find(&d.doc, 0, "ab[1][0]");
    CHECK((zof_jdoc_text(&d.doc, face, text, sizeof text) == 5 && std::string(text) == "\xF0\x9F\x98\x80\""));
    CHECK((zof_jdoc_text(&d.doc, face, text, 3) == 5 && std::string(text) == "\xF0\x9F"));
    for (const char *nowhere : {"ab[2]", "ab.n", "ab[0].m", "ab[", "ab[x]", "[0]", "ab[0].n.x"}) {
        CHECK_MESSAGE(zof_jdoc_find(&d.doc, 0, nowhere) == ZOF_J_NONE, nowhere);
    }
}

TEST_CASE("a change affects only its own bytes and follows the layout") {
    enum { REPLACE, INSERT, REMOVE };
    static const struct {
        int what;
        const char *text, *path, *key, *json, *after; // null: refused
    } rows[] = {
        {REPLACE, "{ \"a\" :\t[1 , 2 ] }\n", "a[1]", nullptr, " \"x\" ", "{ \"a\" :\t[1 , \"x\" ] }\n"},
        {REPLACE, "{\"a\": {\"b\": 1}} // c", "a", nullptr, "[]", "{\"a\": []} // c"},
        {REPLACE, "[1]", "[0]", nullptr, "1,", nullptr},
        {INSERT, "{\n  \"a\" : 1,\n  \"b\" : 2\n}", "", "c\"\n", "[3]",
         "{\n  \"a\" : 1,\n  \"b\" : 2,\n  \"c\\\"\\u000a\" : [3]\n}"},
        {INSERT, "{\n    \"a\":1\n}", "", "b", "2", "{\n    \"a\":1,\n    \"b\":2\n}"},
        {INSERT, "{\"a\": [[1,2]]}", "a[0]", nullptr, "3", "{\"a\": [[1,2,3]]}"},
        {INSERT, "{\"a\": []}", "a", nullptr, "3", "{\"a\": [3]}"},
        {INSERT, "{}", "", "a", "3", "{\"a\": 3}"},
        {INSERT, "[]", "", "a", "3", nullptr},
        {INSERT, "{}", "", "\xFC", "3", nullptr},
        {REMOVE, "{\n  \"a\": 1,\n  \"b\": 2,\n  \"c\": 3\n}", "b", nullptr, "", "{\n  \"a\": 1,\n  \"c\": 3\n}"},
        {REMOVE, "{\n  \"a\": 1,\n  \"b\": 2\n}", "b", nullptr, "", "{\n  \"a\": 1\n}"},
        {REMOVE, "[ 1 ]", "[0]", nullptr, "", "[  ]"},
        {REMOVE, "[ 1 ]", "", nullptr, "", nullptr},
    };
    for (const auto &row : rows) {
        CAPTURE(row.text);
        doc_t d(row.text);
        const u32 node = zof_jdoc_find(&d.doc, 0, row.path);
        size_t size = 0;
        char *after = row.what == REPLACE  ? zof_jdoc_replace(&d.doc, node, row.json, &size)
                      : row.what == INSERT ? zof_jdoc_insert(&d.doc, node, row.key, row.json, &size)
                                           : zof_jdoc_remove(&d.doc, node, &size);
        CHECK((after ? std::string(after, size) : "refused") == (row.after ? row.after : "refused"));
        zof_free(after);
    }
}
