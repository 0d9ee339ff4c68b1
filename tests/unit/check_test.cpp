// The checker of project folders: a correct project, and one mistake at a time with the places of its findings.
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

#include "check/zof_check.h"
#include "media.h"
#include "temp_project.h"
#include "zof_test.h"

static const char project_g[] = "config/project/zofprj.g", link_g[] = "config/project/zofhmi.g",
                  view_g[] = "config/view/one.g", theme_g[] = "config/theme/t/button.g",
                  english_g[] = "config/languages/en.g", looks_g[] = "config/looks.g", ignore[] = "zof-check.ignore";

static const struct {
    const char *path, *text;
} correct[] = {
    {project_g, R"({
"p_name": "T", "width": 320, "height": 240, "start_page": 1, "language": "en",
"views": [{"pageId": 1, "pageName": "one.g"}],
"hw_t": {"tone_t": {"type": 0}}
})"},
    {link_g, R"({"hmi_en": 1, "uart": {"win_port": 5}, "head_fh": 90, "head_fl": 165})"},
    {english_g, "{\"a\": \"A\", \"b\": \"B\"}"},
    {"config/icons.g", "{\"cup\": \"U+E001\"}"},
    {"config/languages/de.g", "{\"a\": \"A\", \"b\": \"B\"}"},
    {theme_g, R"({"styles": [{"body_t": {"opa": 255}}]})"},
    {looks_g, R"({"colors": {"dark": "#123", "brown": "$dark"}, "looks": {
"plain": {"body_t": {"opa": 255, "border": {"width": 2}}, "txt_t": {"color": "$brown"}},
"more": {"is": "plain", "pressed": {"body_t": {"main_color": "$dark"}}}}})"},
    {"config/theme/t/looks.g",
     R"({"colors": {"bright": 16777215}, "looks": {"more": {"txt_t": {"color": "$bright"}}}})"},
    {"image/notes.txt", "of the designer"},
    {view_g, R"({
"view": {"v_name": "one", "v_id": 1, "bg_scale": 255},
"controls": [
{"type": 2, "theme": "t", "look": "More", "property": {
 "pub_t": {"name": "box", "id": 1, "size": {"width": 300, "height": 200}, "alpha": 255}}},
{"type": "button", "theme": "t", "property": {
 "pub_t": {"name": "more", "id": 2, "parent_id": 1, "pt": {"x": 9, "y": 9}, "size": {"width": 90, "height": 40}, "t_mode": 1, "alpha": 255},
 "txt": "#a",
 "styles": [{"style_state": "pressed", "body_t": {"main_color": "#D9863D", "opa": 255, "border": {"opa": 255}}},
            {"txt_t": {"font_lib": "f.bin", "font_size": 20, "opa": 255}, "img_t": {"bg_img": "on.png"}}]}},
{"type": 7, "theme": "t", "property": {
 "pub_t": {"name": "dose", "id": 3, "size": {"width": 90, "height": 40}, "t_mode": 1, "alpha": 255},
 "minValue": 0, "maxValue": 100}},
{"type": 14, "theme": "", "property": {
 "pub_t": {"name": "list", "id": 4, "size": {"width": 90, "height": 40}, "t_mode": 1, "alpha": 255},
 "options": "#b\nTwo"}}
]})"},
};

// Writes the correct project with `from` replaced by `to` in one file; an empty `from` stands for the whole file.
static void project_write(const temp_project_t &project, const std::string &file, const std::string &from,
                          const std::string &to) {
    for (const auto &row : correct) {
        project.write(row.path, row.text);
    }
    for (const auto &[path, of] :
         {std::pair("image/on.png", "image/mark.png"), {"font/f.bin", "font/bench-num-26.bin"}}) {
        std::filesystem::create_directories(std::filesystem::path(project.path(path)).parent_path());
        std::filesystem::copy_file(std::string(ZOF_PANEL_DIR "/res/") + of, project.path(path),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::string text = file.empty() ? "" : file_text(project.path(file));
    const size_t at = text.find(from);
    REQUIRE((from.empty() || (at != text.npos && text.find(from, at + 1) == text.npos)));
    if (!file.empty()) {
        project.write(file, from.empty() ? to : text.replace(at, from.size(), to));
    }
}

static std::string findings_of(const temp_project_t &project) {
    zof_check_t check;
    std::string out;
    REQUIRE(zof_check_project(project.folder.c_str(), &check) == 0);
    for (u32 i = 0; i < check.count; i++) {
        char line[1000];
        zof_check_line(&check.findings[i], ZOF_FALSE, line, sizeof line);
        out += std::string(i ? "\n" : "") + line;
    }
    zof_check_free(&check);
    return out;
}

// A control after the last one, starting with its type; `pub_t` ends in line 17, its other keys follow in line 18.
#define LAST_CTRL "\"#b\\nTwo\"}}"
#define MORE_PUB(type, pub, keys)                                                                      \
    LAST_CTRL ",\n{\"type\": \"" type                                                                  \
              "\", \"theme\": \"\", \"property\": {\"pub_t\": {\"name\": \"x\", \"id\": 9, \"size\": " \
              "{\"width\": 9, \"height\": 9}, \"t_mode\": 1, " pub "},\n" keys "}}"
#define MORE(type, keys) MORE_PUB(type, "\"alpha\": 255", keys)

static const struct {
    const char *file, *from, *to;
    const char *found; // with a file name in front if it is in another file
} mistakes[] = {
    {"", "", "", ""},
    {view_g, "\"v_id\": 1,", "\"v_id\": 1", "2:37: error: expected \",\" [syntax]"},
    {view_g, "\"v_id\": 1,", "\"v_id\": 1, // one\n", "2:38: error: JSON has no comments [comment]"},
    {view_g, "\"bg_scale\": 255}", "\"bg_scale\": 255,}", "2:53: error: no comma may follow the last member [comma]"},
    {english_g, "\"B\"", "\"\xC4\"", "1:18: error: byte C4 is not UTF-8; the file must be saved as UTF-8 [encoding]"},
    {english_g, "{\"a\"", "\xEF\xBB\xBF{\"a\"", "1:1: warning: the file begins with a byte order mark [mark]"},
    {english_g, "\"B\"", "\"B\\u00zz\"",
     "1:19: error: \\u needs four hexadecimal digits other than 0000; the text ends here [escape]"},
    {english_g, "\"b\": \"B\"", "\"b\": \"B\", \"B\": \"C\"",
     "1:22: error: B is given twice; the first one is used [key-twice]"},
    {view_g, "\"t_mode\": 1, \"alpha\": 255},\n \"txt\"", "\"t_mode\": 1, \"Alpha\": 255, \"alpha\": 9},\n \"txt\"",
     "7:141: error: alpha is given twice; the first one is used [key-twice]"},
#define ON(actions) "{\"type\": 7, \"on\": {\"changed\": [" actions "]},"
    {view_g, "{\"type\": 7,",
     ON("\"set more.txt #b\", \"set dose.value 7\", \"lang de\", \"view one fade\", \"beep 50\""), ""},
    {view_g, "{\"type\": 7,", ON("\"veiw one\""), "11:32: error: there is no action veiw [action]"},
    {view_g, "{\"type\": 7,", ON("\"view two\""), "11:32: error: there is no view two [action]"},
    {view_g, "{\"type\": 7,", ON("\"view one sideways\""),
     "11:32: error: sideways is not left, right, up, down or fade [action]"},
    {view_g, "{\"type\": 7,", ON("\"toggle\""), "11:32: error: toggle takes CONTROL [action]"},
    {view_g, "{\"type\": 7,", ON("\"back home\""), "11:32: error: back takes no arguments [action]"},
    {view_g, "{\"type\": 7,", ON("\"hide one/keys\""), "11:32: error: there is no control one/keys [action]"},
    {view_g, "{\"type\": 7,", ON("\"set dose.txt x\""), "11:32: error: dose has no .txt that can be set [action]"},
    {view_g, "{\"type\": 7,", ON("\"set dose.value x\""), "11:32: error: x is not a whole number [action]"},
    {view_g, "{\"type\": 7,", ON("\"set more x\""),
     "11:32: error: more needs .txt or .value after the control's name [action]"},
    {view_g, "{\"type\": 7,", "{\"type\": 7, \"on\": {\"click\": []},",
     "11:20: error: unknown key click; did you mean clicked? [key-unknown]"},
    {view_g, "\"txt\": \"#a\"", "\"tx\": \"#a\"", "8:2: error: unknown key tx; did you mean txt? [key-unknown]"},
    {view_g, "\"txt\": \"#a\"", "\"txt\": \"#a\", \"frobnicate\": 1",
     "8:15: error: unknown key frobnicate in button [key-unknown]"},
    {view_g, "\"txt\": \"#a\"", "\"txt\": \"#a\", \"alpha\": 255",
     "8:15: error: the key alpha belongs in pub_t [key-place]"},
    {view_g,
     "\"options\":", "\"maxValue\": 3, \"options\":", "16:2: error: unknown key maxValue in drop list [key-unknown]"},
    {view_g, "\"minValue\": 0", "\"minValue\": \"0\"",
     "13:14: error: expected a number, found a text; numbers are written without quotes [kind]"},
    {view_g, "\"minValue\": 0", "\"minValue\": 0, \"anim_time\": true",
     "13:30: error: expected a number, found true [kind]"},
    {view_g, "\"minValue\": 0", "\"minValue\": -40000", "13:14: error: -40000 is not from -32768 to 32767 [range]"},
    {view_g, "\"minValue\": 0", "\"minValue\": 0.5",
     "13:14: warning: the fraction is cut off; it counts as 0 [fraction]"},
    {view_g, "\"pressed\"", "\"presed\"", "9:29: error: unknown name; did you mean pressed? [name]"},
    {view_g, "\"button\"", "\"buton\"", "6:10: error: unknown name; did you mean button? [name]"},
    {view_g, "\"style_state\": \"pressed\"", "\"style_part\": 7",
     "9:28: error: 7 has no meaning; the names are main, scroll bar, indicator, knob, selection, items, ticks, cursor, "
     "placeholder [name]"},
    {view_g, "\"#D9863D\"", "\"#D9863\"",
     "9:65: error: a colour is \"#RRGGBB\" or \"#RGB\", in hexadecimal digits, or \"$name\" [colour]"},
    {view_g, "\"#D9863D\"", "4294967295", "9:65: error: a colour is a number from 0 to 16777215, 0xRRGGBB [colour]"},
    {view_g, "\"theme\": \"\",", "",
     "14:1: error: theme is missing: name of a theme; it need not exist. Without this key the view ends here "
     "[missing]"},
    {view_g, "\"minValue\": 0, \"maxValue\": 100", "\"minValue\": -1",
     "11:27: warning: maxValue is missing: high end [incomplete]"},
    {view_g, "\"name\": \"dose\", \"id\": 3,", "\"name\": \"dose\",",
     "12:2: error: id is missing: id, unique in its view [missing]"},
    {view_g, "{\"name\": \"box\", \"id\": 1, \"size\": {\"width\": 300, \"height\": 200}, \"alpha\": 255}",
     "{\"name\": \"box\", \"id\": 1, \"size\": {\"width\": 300, \"height\": 200}}",
     "5:2: warning: alpha is missing: it counts as 0, which is invisible [invisible]"},
    {view_g, "\"size\": {\"width\": 300, \"height\": 200}, \"alpha\": 255",
     "\"size\": {\"width\": 300, \"height\": 200}, \"alpha\": 0",
     "5:84: warning: alpha is 0, so the control is invisible [invisible]"},
    {view_g, "\"pt\": {\"x\": 9, \"y\": 9}, \"size\": {\"width\": 90, \"height\": 40}",
     "\"pt\": {\"x\": 9, \"y\": 9}, \"size\": {\"width\": 90}",
     "7:77: warning: the height is 0, so the control is invisible [invisible]"},
    {view_g, "\"id\": 3, \"size\": {\"width\": 90, \"height\": 40}, \"t_mode\": 1,",
     "\"id\": 3, \"size\": {\"width\": 90, \"height\": 40},",
     "12:2: warning: t_mode is missing, so touches pass through this slider; write \"t_mode\": 1 [dead]"},
    {view_g, "\"id\": 3,", "\"id\": 2,",
     "12:34: error: the control more has the id 2 already; this one is left out [id]"},
    {view_g, "\"id\": 3,", "\"id\": 70000,", "12:34: error: 70000 is not from 1 to 65535 [range]"},
    {view_g, "\"dose\"", "\"More\"", "12:20: warning: another control of this view has the name MORE [identifier]"},
    {view_g, "\"dose\"", "\"\xC3\xBC\"",
     "12:20: warning: ü makes no readable identifier; use letters and digits [identifier]"},
    {view_g, "\"name\": \"dose\",", "", "12:2: warning: a control without a name has no id in programs [identifier]"},
    {view_g, "\"parent_id\": 1", "\"parent_id\": 9", "7:50: error: no control has the id 9 [parent]"},
    {view_g, "\"parent_id\": 1", "\"parent_id\": 2", "7:50: error: a control cannot be its own parent [parent]"},
    {view_g, "\"parent_id\": 1", "\"parent_id\": 3",
     "7:50: error: the parent, 3, must come before this control [parent]"},
    {view_g, "\"type\": 14,", "\"type\": 24,",
     "config/languages/de.g:1:12: warning: no file uses the text b [text-unused]\n"
     "15:2: error: the parent of a tile must be a tile view [parent]\n"
     "16:2: error: unknown key options in tile [key-unknown]"},
    {view_g, "\"pt\": {\"x\": 9, \"y\": 9}", "\"pt\": {\"x\": 250, \"y\": 9}",
     "7:53: warning: 250,9 90 x 40 is partly outside its parent, 300 x 200 [outside]"},
    {view_g, "\"name\": \"dose\",", "\"name\": \"dose\", \"pt\": {\"x\": 320, \"y\": 0},",
     "12:28: warning: 320,0 90 x 40 is outside the screen, 320 x 240 [outside]"},
    {view_g, "\"maxValue\": 100", "\"maxValue\": 0", "13:17: error: minValue, 0, is not below maxValue, 0 [ends]"},
    {view_g, "\"#b\\nTwo\"", "\"#b\\n\\nTwo\"", "16:13: warning: an empty line is an option without a text [options]"},
    {view_g,
     "\"type\": 14, \"theme\": \"\", \"property\": {\n \"pub_t\": {\"name\": \"list\", \"id\": 4, \"size\": "
     "{\"width\": 90, \"height\": 40}, \"t_mode\": 1, \"alpha\": 255},\n \"options\": \"#b\\nTwo\"}",
     "\"type\": 26, \"theme\": \"\", \"property\": {\n \"pub_t\": {\"name\": \"list\", \"id\": 4, \"size\": "
     "{\"width\": 90, \"height\": 40}, \"alpha\": 255},\n \"btnmatrix_txt\": [\"#b\", \"2\"]}",
     "15:2: warning: t_mode is missing, so touches pass through this button matrix; write \"t_mode\": 1 [dead]\n"
     "16:26: warning: the last caption must be an empty one, \"\", which ends the list [options]"},
    {view_g, "\"style_state\": \"pressed\"", "\"style_part\": \"knob\"",
     "9:28: warning: a button does not have this part [style]"},
    {view_g, "\"style_state\": \"pressed\"", "\"style_state\": \"always\"",
     "10:13: warning: another style is for the same part, state and section [style-twice]"},
    {theme_g, "\"opa\": 255", "\"opa\": 255, \"colour\": 3", "1:37: error: unknown key colour in body_t [key-unknown]"},
    {project_g, "\"one.g\"}", "\"one.g\"}, {\"pageId\": 1, \"pageName\": \"one.g\"}",
     "3:58: error: one.g has the pageId 1 already; this entry is left out [view-entry]\n"
     "3:73: error: the file has an entry already [view-entry]"},
    {project_g, "\"one.g\"", "\"on.g\"",
     "3:37: error: there is no config/view/on.g; did you mean one.g? [file-missing]\n"
     "config/view/one.g:1:1: warning: the project file has no entry for this view [view-unlisted]"},
    {project_g, "\"one.g\"", "\"One.g\"", "3:37: error: the file is config/view/one.g [file-case]"},
    {view_g, "\"v_id\": 1", "\"v_id\": 3",
     "2:35: error: v_id is 3, but the project file gives this view the pageId 1 [view-id]"},
    {project_g, "\"start_page\": 1", "\"start_page\": 2", "2:59: error: no view has the pageId 2 [start-page]"},
    {project_g, "\"language\": \"en\"", "\"language\": \"fr\"",
     "2:74: error: there is no config/languages/fr.g [language]"},
    {project_g, "\"width\": 320,", "", "1:1: error: width is missing: width of the design [missing]"},
    {project_g, "\"type\": 0", "\"type\": 1, \"sound\": \"beep.wav\"",
     "4:41: error: there is no sound/beep.wav [file-missing]"},
    {project_g, "{\n\"p_name\"", "[{\n\"p_name\"",
     "1:1: error: expected an object [syntax]\n"
     "5:2: error: expected \",\" or \"]\", found the end of the file; the array began at 1:1 [syntax]"},
    {view_g, "\"on.png\"", "\"om.png\"", "10:95: error: there is no image/om.png; did you mean on.png? [file-missing]"},
    {view_g, "\"on.png\"", "\"../on.png\"", "10:95: error: there is no on.png [file-missing]"},
    {view_g, "\"f.bin\"", "\"f.bim\"", "10:36: error: there is no font/f.bim; did you mean f.bin? [file-missing]"},
    {view_g, "\"f.bin\"", "\"f.bin, g.otf\"", "10:36: error: there is no font/g.otf [file-missing]"},
    {"image/on.png", "", "no picture", "1:1: error: not a PNG picture [file-damaged]"},
    {"font/f.bin", "", "no", "1:1: error: not a font [file-damaged]"},
    {view_g, "\"theme\": \"\",", "\"theme\": \"night\",", "14:23: warning: there is no theme night [theme]"},
    {"config/theme/t/buton.g", "", "{\"styles\": []}",
     "1:1: warning: no control type has a theme file of this name; did you mean button? [theme]"},
    {english_g, ", \"b\": \"B\"", "",
     "config/languages/de.g:1:12: warning: config/languages/en.g has no text b [text-missing]"},
    {english_g, "\"b\": \"B\"", "\"b\": \"B\", \"c\": \"C\"",
     "1:22: warning: config/languages/de.g has no text c [text-missing]\n"
     "1:22: warning: no file uses the text c [text-unused]"},
    {view_g, "\"#a\"", "\"#c\"",
     "config/languages/de.g:1:2: warning: no file uses the text a [text-unused]\n"
     "8:9: warning: config/languages/de.g has no text c [text-missing]\n"
     "8:9: warning: config/languages/en.g has no text c [text-missing]"},
    {"config/icons.g", "U+", "", "1:9: error: expected a letter as \"U+E000\" [kind]"},
    {english_g, "\"B\"", "\":cap: :cup: 12:30:45 x:y:z\"",
     "1:17: warning: there is no icon cap; did you mean cup? [icon]"},
    {link_g, "165", "90", "1:66: error: head_fh and head_fl are equal, so no link is opened [link]"},
    {ignore, "", "text-unused x nothing\nstyle view\n# a comment\n",
     "1:1: warning: there is no finding text-unused at x; remove the line [ignore]\n2:1: warning: expected RULE "
     "FILE[:KEY] REASON [ignore]"},
    {view_g, LAST_CTRL, MORE_PUB("label", "\"alpha\": 0, \"hidden\": true", "\"txt\": \"\""), ""},
    {view_g, LAST_CTRL, MORE("arc", "\"angle_t\": {}, \"range_t\": {\"minValue\": 5, \"maxValue\": 5}"),
     "18:43: error: minValue, 5, is not below maxValue, 5 [ends]"},
    {view_g, LAST_CTRL, MORE("spin box", "\"int_cnt\": 1, \"range_min\": 5, \"range_max\": 4"),
     "18:31: error: range_min, 5, is not below range_max, 4 [ends]"},
    {view_g, LAST_CTRL, MORE("chart", "\"dis_type_e\": 1, \"point_cnt\": 1, \"y_min\": 5, \"y_max\": 4"),
     "18:46: error: y_min, 5, is not below y_max, 4 [ends]"},
    {view_g, LAST_CTRL,
     MORE("image sequence", "\"frame_rate\": 9, \"end_id\": 1, \"repeat_count\": 1, \"img_dsc_t\": \"none\""),
     "18:63: error: there is no folder image/none/ with pictures [file-missing]"},
    {view_g, LAST_CTRL, MORE("gif", "\"init_gif\": \"\", \"styles\": [{}]"),
     "18:17: warning: a control of this type has no styles [style]"},
    {"config/theme/t/label.g", "", "{\"styles\": [{\"style_state\": \"checked\"}]}",
     "1:29: warning: a label does not have this state [style]"},
    {view_g, "\"style_state\": \"pressed\"", "\"style_sect\": 1",
     "9:28: warning: a button does not have this section [style]"},
    {view_g, "\"border\": {\"opa\": 255}", "\"border\": {\"opa\": 255, \"main_color\": 1}",
     "9:111: error: the key main_color belongs in the object around this one [key-place]"},
    {view_g, "\"border\": {\"opa\": 255}", "\"border\": {\"opa\": 255, \"type\": 1}",
     "9:111: error: the key type belongs in shadow, beside this object [key-place]"},
    {theme_g, "{\"styles\"", "{\"colours\": 1, \"styles\"", "1:2: error: unknown key colours in a theme [key-unknown]"},
    {view_g, "\"on.png\"", "\"o\\u0001n.png\"",
     "10:95: error: a name with control characters is not opened [file-name]"},
    {view_g, "\"on.png\"", "\"o*.png\"",
     "10:95: error: a name with \\ < > | \" ? or * is not valid on all systems [file-name]"},
    {view_g, "\"on.png\"", "\"notes.txt\"", "10:95: error: pictures are .png, .jpg or .gif files [file-name]"},
    {project_g, "\"language\": \"en\"", "\"language\": \"EN\"",
     "2:74: error: the file is config/languages/en.g [file-case]"},
    {view_g, "\"look\": \"More\"", "\"look\": \"Mor\"",
     "config/looks.g:3:1: warning: no control has the look more [look-unused]\n"
     "config/theme/t/looks.g:1:44: warning: no control has the look more [look-unused]\n"
     "4:35: error: there is no look Mor; did you mean more? [look]"},
    {view_g, "\"options\":", "\"styles\": [{\"body_t\": {\"opa\": 9, \"main_color\": \"$bright\"}}], \"options\":",
     "16:49: error: there is no colour bright [look]"},
    {looks_g, "\"is\": \"plain\"", "\"is\": \"plan\"",
     "2:1: warning: no control has the look plain [look-unused]\n"
     "3:16: error: there is no look plan; did you mean plain? [look]"},
    {looks_g, "{\"body_t\": {\"opa\"", "{\"is\": \"more\", \"body_t\": {\"opa\"",
     "2:17: error: the look inherits from itself [look]\n3:16: error: the look inherits from itself [look]"},
    {looks_g, "\"$dark\"}, ", "\"$brown\"}, ", "1:38: error: the colour refers to itself [look]"},
    {looks_g, "\"$brown\"", "\"$borwn\"", "2:78: error: there is no colour borwn; did you mean brown? [look]"},
    {looks_g, "\"looks\": {", "\"looks\" {",
     "1:56: error: expected \":\", found \"{\"; the object began at 1:1 [syntax]"},
    {looks_g, "\"pressed\"", "\"presed\"", "3:25: error: unknown key presed; did you mean pressed? [key-unknown]"},
    {looks_g, "\"looks\": {", "\"looks\": {\"MORE\": {}, ",
     "3:1: error: more is given twice; the first one is used [key-twice]"},
    {project_g, "[{\"pageId\": 1, \"pageName\": \"one.g\"}]", "3",
     "3:10: error: expected an array, found a number [kind]"},
    {"config/view/two.g", "", "{\"view\": {\"v_id\": 2}, \"controls\": []}",
     "1:1: warning: the project file has no entry for this view [view-unlisted]"},
    {view_g, "\"on.png\"", "\"../../on.png\"", "10:95: error: leads out of the project [file-name]"},
    {view_g, "\"on.png\"", "\"../image/./on.png\"", ""},
    {view_g, "\"on.png\"", "\"X:on.png\"",
     "10:95: error: there is no drive X:; the drives are D, E, T, U and P [file-name]"},
    {view_g, "\"on.png\"", "\"on\"", "10:95: error: there is no image/on; did you mean on.png? [file-missing]"},
    {view_g, "\"button\"", "\"button\", \"id\": 2", "6:20: error: the key id belongs in property.pub_t [key-place]"},
    {view_g, "\"button\"", "\"button\", \"options\": 2",
     "6:20: error: the key options belongs in property [key-place]"},
    {view_g, "\"type\": 2,", "",
     "4:1: error: type is missing: control type: number or name, see control types [missing]"},
    {view_g, "\"type\": 2,", "\"tpye\": 2,", "4:2: error: unknown key tpye; did you mean type? [key-unknown]"},
    {view_g, "\"type\": 2,", "\"type\": \"contaner\",", "4:10: error: unknown name; did you mean container? [name]"},
    {view_g, "\"controls\"", "\"control\"", "3:1: error: unknown key control; did you mean controls? [key-unknown]"},
    {view_g, "\"pressed\"", "\"pressed|checked\"", "9:29: error: names are joined by + [name]"},
    {view_g, "\"#D9863D\"", "0xD9863D", "9:65: error: a colour is written \"#D9863D\" [syntax]"},
    {view_g, "\"minValue\": 0", "\"minValue\": 092", "13:14: warning: a number does not begin with 0 [strict]"},
    {view_g, "\"width\": 300", "\"width\": -5", "5:54: error: -5 is not from 0 to 4294967295 [range]"},
    {view_g, "\"main_color\": \"#D9863D\", \"opa\": 255,", "\"main_color\": 0,",
     "9:51: warning: main_color is not seen: opa is missing and counts as 0 [invisible]"},
    {view_g, "{\"txt_t\": {\"font_lib\"", "{\"body_t\": {\"main_color\": 0}, \"txt_t\": {\"font_lib\"",
     ""}, // the theme's
    {view_g, LAST_CTRL, MORE("arc", "\"angle_t\": {}, \"range_t\": {\"maxValue\": 5}, \"arc_value\": 6"),
     "18:57: error: 6 is not from minValue, 0, to maxValue, 5 [range]"},
    {view_g, LAST_CTRL, MORE("spin box", "\"int_cnt\": 1, \"range_min\": 5, \"range_max\": 9, \"i_value\": 4"),
     "18:58: error: 4 is not from range_min, 5, to range_max, 9 [range]"},
    {view_g, LAST_CTRL, MORE("chart", "\"dis_type_e\": 1, \"point_cnt\": 0, \"y_max\": 4"),
     "18:31: error: 0 is not from 1 to 65535 [range]"},
    {project_g, "\"language\": \"en\",", "",
     "1:1: warning: language is missing, so \"#a\" is shown as it is until the program sets one [incomplete]"},
    {"config/view/one.g~", "", "{", ""},
    {"config/veiw/two.g", "", "{}", "config/veiw:1:1: warning: this folder is not read; did you mean view? [folder]"},
};

TEST_CASE("links that leave the project, form a circle or lead nowhere are reported once, and so are irregular files") {
    lv_init();
    static const char cut[] = ":1:1: error: a link that leads out of the project; it is not opened [file-name]";
    const struct {
        const char *link, *to; // null: a pipe; "": a folder
        std::string found;
    } rows[] = {
        {"image/x.png", "on.png", ""},
        {"image/x.png", "/etc/passwd", std::string("image/x.png") + cut},
        {"image/etc", "../..", std::string("image/etc") + cut},
        {"image/x.png", "none", "image/x.png:1:1: error: a link that leads nowhere [file-name]"},
        {"image/all", "../image",
         "image/all:1:1: error: a link to a folder that it is in; it is not followed [file-name]"},
        {"image/x.png", nullptr, "image/x.png:1:1: error: not a regular file [file-damaged]"},
        {"config/view/two.g", nullptr, "config/view/two.g:1:1: error: not a regular file [file-damaged]"},
        {"config/view/two.g", "", "config/project/zofprj.g:3:73: error: config/view/two.g is a folder [file-missing]"},
    };
    for (const auto &row : rows) {
        CAPTURE(row.link);
        temp_project_t project;
        const bool view = std::string(row.link) == "config/view/two.g";
        project_write(project, view ? project_g : "", view ? "\"one.g\"}" : "",
                      view ? "\"one.g\"}, {\"pageId\": 2, \"pageName\": \"two.g\"}" : "");
        const std::string path = project.path(row.link);
        REQUIRE((!row.to   ? mkfifo(path.c_str(), 0600)
                 : *row.to ? symlink(row.to, path.c_str())
                           : mkdir(path.c_str(), 0700)) == 0);
        CHECK(findings_of(project) == row.found);
        project_write(project, project_g, "\"width\"", "\"allow_outside\": 1, \"width\"");
        CHECK(!contains(findings_of(project), "leads out"));
    }
}

TEST_CASE("sounds and clips that cannot be played, or are cut short, are reported") {
    const struct {
        const char *name;
        s32 keep; // percent of the file
        const char *found;
    } rows[] = {
        {"sound/a.wav", 100, ""},
        {"sound/a.mp3", 100, ""},
        {"video/a.mp4", 100, ""},
        {"sound/a.wav", 50, "cut short: its end is missing"},
        {"sound/a.mp3", 0, "not a sound file of this kind"},
        {"video/a.mp4", 50, "not an MP4 file, or its end is missing"},
    };
    lv_init();
    for (const auto &row : rows) {
        CAPTURE(std::string(row.name) + std::to_string(row.keep));
        temp_project_t project;
        project_write(project, "", "", "");
        const bool clip = zof_suffix_is(row.name, ".mp4");
        project.write(row.name, "");
        media_clip made;
        made.width = made.height = clip ? 16 : 0;
        made.frames = clip ? 25 : 0;
        made.tone_hz = 440;
        made.tone_ms = 1000;
        REQUIRE(media_write(project.path(row.name).c_str(), made));
        const std::string all = file_text(project.path(row.name));
        project.write(row.name, all.substr(0, all.size() * (size_t)row.keep / 100));
        const std::string found = findings_of(project);
        CHECK(found == (*row.found ? std::string(row.name) + ":1:1: error: " + row.found + " [file-damaged]" : ""));
    }
}

TEST_CASE("pictures are opened with the decoders of the runtime, which know progressive JPEG") {
    lv_init();
    temp_project_t project;
    project_write(project, "", "", "");
    project.write("image/a.jpg", file_text(ZOF_MEDIA_DIR "/few_scans.jpg"));
    CHECK(findings_of(project) == "");
}

TEST_CASE("a folder without a readable project file is refused with the reason") {
    temp_project_t project;
    char found[500];
    std::filesystem::remove_all(project.path("config"));
    CHECK(zof_check_find(project.folder.c_str(), found, sizeof found) == -1);
    CHECK(zof_check_find("", found, sizeof found) == -1);
    for (const char *said : {"not a regular file", "there is no file of this name"}) {
        std::filesystem::remove_all(project.path("config"));
        std::filesystem::create_directories(project.path("config/project"));
        const std::string path = project.path(project_g);
        REQUIRE((*said == 'n' ? mkfifo(path.c_str(), 0600) : mkdir(path.c_str(), 0700)) == 0);
        REQUIRE(zof_check_find(project.folder.c_str(), found, sizeof found) == 0);
        zof_check_t check;
        CHECK(zof_check_project(found, &check) == -1);
        REQUIRE(check.count == 1);
        CHECK(std::string(check.findings[0].text) == said);
        zof_check_free(&check);
    }
}

TEST_CASE("findings that zof-check.ignore lists with a reason are omitted") {
    lv_init();
    for (const char *place : {":controls[1].property.txt", ":controls[1]*", ":*", ""}) {
        temp_project_t project;
        project_write(project, view_g, "\"#a\"", "\"#c\"");
        project.write(ignore, std::string("text-missing config/view/one.g") + place + " another file has it\r\n" +
                                  "text-unused config/languages/*   the program uses it");
        CHECK(findings_of(project) == "");
    }
}

TEST_CASE("with ZOF_STRICT=1 a project with errors does not start, and its findings are logged") {
    lv_init();
    temp_project_t project;
    project_write(project, project_g, "\"start_page\": 1", "\"start_page\": 2");
    for (const char *strict : {"0", "1"}) {
        setenv("ZOF_STRICT", strict, 1);
        zof_bool starts = ZOF_FALSE;
        const std::string log = printed([&] { starts = zof_check_start(project.folder.c_str()); });
        CHECK(starts == (strict[0] == '0'));
        CHECK(contains(log, "zofprj.g:2:59: error: no view has the pageId 2") == !starts);
    }
    unsetenv("ZOF_STRICT");
}

TEST_CASE("each mistake in a project is found at its place, and a correct project has none") {
    lv_init();
    std::string all;
    for (const auto &row : mistakes) {
        CAPTURE(std::string(row.to));
        temp_project_t project;
        project_write(project, row.file, row.from, row.to);
        std::string found = findings_of(project);
        for (size_t at; (at = found.find(std::string(row.file) + ":")) != found.npos && row.file[0];) {
            found.erase(at, strlen(row.file) + 1);
        }
        CHECK(found == row.found);
        all += row.found;
    }
    for (const zof_check_rule_t *rule = zof_check_rules; rule->name; rule++) {
        const bool other_build = std::string(rule->name) == "not-built-in"; // without FFmpeg
        CHECK_MESSAGE((other_build || contains(all, std::string("[") + rule->name + "]")), rule->name);
    }
}
