// What `zof new` is made of: the page of a template, laid out for any size, and the files that all templates share.
#ifndef ZOF_NEW_H
#define ZOF_NEW_H

#include <map>
#include <string>
#include <vector>

// Part of a page, in pixels of the control that contains it.
struct new_box_t {
    int x, y, w, h;
};

// Lengths in pixels that depend on the size of the panel, so that a page is neither crowded nor lost.
struct new_scale_t {
    int least;                     // of the shorter side of the panels that it is for
    int gap;                       // margin, and space between controls; all other spaces are multiples of half of it
    int touch;                     // height of what a finger has to hit
    int small, text, title, value; // sizes of letters, if there is a font
};

struct new_page_t {
    const new_scale_t *scale;
    bool font;                          // texts have a font of the project
    bool program;                       // handles the buttons; otherwise actions do
    std::vector<std::string> languages; // the first one is shown at start
    std::string name;                   // of the project
    std::string controls;               // entries of the view file
    int count;                          // controls so far; the last one has this id
};

struct new_template_t {
    const char *name;
    void (*draw)(new_page_t &page, new_box_t box); // box: the whole panel
    std::vector<const char *> program;             // files between start.c and end.c
};

extern const new_template_t new_templates[3];

const new_scale_t *new_scale(int width, int height);

// The height of a line of text with letters of a size; without a font, that of the built-in one.
int new_line(const new_page_t &page, int size);

// Boxes: the part that is cut off is returned, and the box keeps the rest without the gap.
new_box_t new_top(new_box_t &box, int height, int gap);
new_box_t new_bottom(new_box_t &box, int height, int gap);
new_box_t new_left(new_box_t &box, int width, int gap);
new_box_t new_right(new_box_t &box, int width, int gap);
new_box_t new_column(new_box_t box, int column, int columns, int gap);
new_box_t new_row(new_box_t box, int row, int rows, int gap);

// The inside of a control of this size, in its own pixels.
new_box_t new_inside(new_box_t box, int space);

// Adds a control to the page. `name` is its name in ids.h; "" makes one of its type and id. `parent` is the id of a
// control, 0 the view. `keys`: further members of its property, `pub` of its pub_t, `on` of its actions; all may be "".
// Returns its id.
int new_control(new_page_t &page, int parent, const char *type, const char *look, const char *name, new_box_t box,
                const std::string &keys, const std::string &pub = "", const std::string &on = "");

// A label whose text stands at a place of the box, such as "left middle".
int new_label(new_page_t &page, int parent, const char *look, const char *name, new_box_t box, const char *text,
              const char *align);

// `actions` are those at a click, "lang en de"; empty for none.
int new_button(new_page_t &page, int parent, const char *look, const char *name, new_box_t box, const char *text,
               const std::string &actions = "");

// Returns the texts of a language that a view refers to, as a language file.
std::string new_texts(const std::string &view, const std::vector<std::string> &languages, size_t language);

// Returns true if the texts of a language exist; those of others are English.
bool new_language_known(const std::string &language);

// The name of a language in itself, or its code in capitals.
std::string new_language_name(const std::string &language);

// Returns the text of a file of this folder, without the lines from `// @if languages` to `// @end` if there is one
// language.
std::string new_file(const char *name, bool languages);

std::string new_replaced(std::string text, const std::string &from, const std::string &to);

// A look or a colour: its name, and its JSON text as it stands in a file of looks.
struct new_look_t {
    std::string name, text;
};

// The file of all looks that a new project can have, with fonts and paddings for the size of the page.
std::string new_looks_text(const new_page_t &page);
// The looks of such a file; each one follows the one that it inherits from.
std::vector<new_look_t> new_looks_split(const std::string &text);
// The file without the looks that neither a view nor a look in use names.
std::string new_looks_used(const std::string &text, const std::string &view);
// Returns the name of the look with which a control of a type begins; "" if the type needs none.
const char *new_look_name(const std::string &type);

// What a new project is made of.
struct new_project_t {
    std::string name;           // of project and program
    std::string form = "blank"; // name of the template
    int width = 800, height = 480;
    std::vector<std::string> languages = {"en", "de"}; // the first one at start
    bool font = false;                                 // texts use font/text.ttf, which is not among the files
    unsigned baud = 0;                                 // of the serial link to a host; 0: none
    bool program = true;                               // with a program in C and its build
};

struct new_file_t {
    std::string name, text; // "res/config/view/main.g"
};

// Returns what is wrong, or an empty text.
std::string new_project_check(const new_project_t &project);

// The files of a project that has passed the check.
std::vector<new_file_t> new_project_files(const new_project_t &project);

// Writes them into a folder that does not exist or is empty. Returns an error or an empty text.
std::string new_project_write(const new_project_t &project, const std::string &dir);

// The name that a project has by its folder.
std::string new_project_name(const std::string &dir);

#endif
