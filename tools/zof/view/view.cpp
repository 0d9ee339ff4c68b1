// Functions that the file output and the window of `zof view` share.
#include "view.h"

view_options_t view_options;

static const char *text_of(const cJSON *object, const char *name) {
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItem(object, name));
    return text ? text : "";
}

std::string view_message_text(const cJSON *message) {
    std::string text = text_of(message, "file");
    text.erase(0, text.find_last_of('/') + 1);
    const cJSON *line = cJSON_GetObjectItem(message, "line");
    if (cJSON_IsNumber(line) && line->valueint > 0) {
        text += ":" + std::to_string(line->valueint) + ":" +
                std::to_string(cJSON_GetObjectItem(message, "column") ? cJSON_GetObjectItem(message, "column")->valueint
                                                                      : 0);
    }
    const std::string key = text_of(message, "key");
    return text + ": " + (key.empty() ? "" : key + ": ") + text_of(message, "text");
}

void view_choice_add(cJSON *command) {
    const std::pair<const char *, const std::string &> choices[] = {
        {"view", view_options.view}, {"language", view_options.language}, {"theme", view_options.theme}};
    for (const auto &[name, value] : choices) {
        if (!value.empty()) {
            cJSON_AddStringToObject(command, name, value.c_str());
        }
    }
}

std::vector<std::string> view_texts(const cJSON *reply, const char *array, const char *member) {
    std::vector<std::string> texts;
    const cJSON *item = nullptr;
    cJSON_ArrayForEach(item, cJSON_GetObjectItem(reply, array)) {
        const char *text = cJSON_GetStringValue(member ? cJSON_GetObjectItem(item, member) : item);
        texts.push_back(text ? text : "");
    }
    return texts;
}
