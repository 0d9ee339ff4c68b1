// The list of findings: one for each place, rule and subject, wherever it appears.
#include "lint.h"

#include "lint_in.h"

#include <cstring>

static const cJSON *item(const cJSON *object, const char *name) {
    return cJSON_GetObjectItemCaseSensitive(object, name);
}

const char *lint_text(const cJSON *object, const char *name) {
    const char *text = cJSON_GetStringValue(item(object, name));
    return text ? text : "";
}

double lint_number(const cJSON *object, const char *name, double absent) {
    const cJSON *number = item(object, name);
    return cJSON_IsNumber(number) ? number->valuedouble : absent;
}

bool lint_is(const cJSON *object, const char *name) {
    return cJSON_IsTrue(item(object, name));
}

s32 lint_at(const cJSON *object, const char *name, int index) {
    const cJSON *number = cJSON_GetArrayItem(item(object, name), index);
    return number ? number->valueint : 0;
}

view_box_t lint_box(const cJSON *object, const char *name) {
    return {lint_at(object, name, 0), lint_at(object, name, 1), lint_at(object, name, 2), lint_at(object, name, 3)};
}

static const zof_check_rule_t *rule_named(const char *name) {
    const zof_check_rule_t *rule = zof_lint_rules;
    while (rule->name && strcmp(rule->name, name) != 0) {
        rule++;
    }
    return rule;
}

static lint_finding_t finding_make(const lint_case_t &at, const char *rule, const std::string &text, double weight) {
    const cJSON *place = item(at.control, "place");
    std::string file = lint_text(place, "file");
    if (file.compare(0, at.lint->folder.size(), at.lint->folder) == 0) {
        file.erase(0, at.lint->folder.size());
    }
    return {rule_named(rule),
            file,
            lint_text(place, "key"),
            (u32)lint_number(place, "line", 1),
            (u32)lint_number(place, "column", 1),
            text,
            weight,
            {{*at.cell, at.box}}};
}

void lint_add(const lint_case_t &at, const char *rule, double weight, const std::string &text) {
    const lint_finding_t made = finding_make(at, rule, text, weight);
    const std::string name =
        made.file + ":" + std::to_string(made.line) + ":" + std::to_string(made.col) + " " + rule + " " + at.subject;
    const auto [found, fresh] = at.lint->found.emplace(name, made);
    if (fresh) {
        return;
    }
    found->second.marks.push_back(made.marks[0]);
    if (weight > found->second.weight) {
        found->second.weight = weight;
        found->second.text = text;
    }
}

void lint_font_note(const lint_case_t &at, const std::string &font, bool used) {
    const auto [found, fresh] = at.lint->fonts.emplace(font, lint_font_t{});
    if (fresh) {
        found->second.first = finding_make(at, "font-unused", font + " is loaded, but no control shows texts in it", 0);
        found->second.first.marks.clear();
    }
    found->second.used = found->second.used || used;
}

static std::string list(const std::set<std::string> &names) {
    std::string text;
    for (const std::string &name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

// " (in de, fr; with theme dark)"; empty for a finding that appears in all languages and themes.
static std::string limits(const view_plan_t &plan, const lint_finding_t &finding) {
    std::set<size_t> columns;
    std::set<std::string> languages;
    std::set<std::string> themes;
    std::set<std::string> pairs;
    for (const lint_mark_t &mark : finding.marks) {
        columns.insert(mark.cell.column);
        languages.insert(mark.cell.language);
        themes.insert(mark.cell.theme);
        pairs.insert(mark.cell.language + " with " + mark.cell.theme);
    }
    if (columns.empty() || columns.size() == plan.languages.size() * plan.themes.size()) {
        return "";
    }
    if (columns.size() != languages.size() * themes.size()) {
        return " (in " + list(pairs) + ")";
    }
    const std::string in = languages.size() < plan.languages.size() ? "in " + list(languages) : "";
    const std::string with = themes.size() < plan.themes.size() ? "with theme " + list(themes) : "";
    return " (" + in + (in.empty() || with.empty() ? "" : "; ") + with + ")";
}

void lint_end(lint_t *lint, const char *folder, zof_check_t *check) {
    for (const auto &[name, font] : lint->fonts) {
        if (!font.used) {
            lint->found.emplace("font " + name, font.first);
        }
    }
    for (auto &[name, finding] : lint->found) {
        finding.text += limits(lint->plan, finding);
        const zof_finding_t copied = {finding.rule, (char *)finding.file.c_str(), finding.line,
                                      finding.col,  (char *)finding.key.c_str(),  (char *)finding.text.c_str()};
        zof_check_add(check, &copied);
    }
    zof_lint_settle(folder, lint->plan.whole ? ZOF_TRUE : ZOF_FALSE, check);
}
