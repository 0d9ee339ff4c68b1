// Helpers for building JSON.
#ifndef ZOF_CAT_JSON_IN_H
#define ZOF_CAT_JSON_IN_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

// Add members. A null text adds nothing.
void json_text(cJSON *object, const char *key, const char *text);
void json_texts(cJSON *object, const char *key, const std::vector<std::string> &texts);
void json_parsed(cJSON *object, const char *key, const char *json);

// Prints an object, indented by two spaces, and releases it.
std::string json_print(cJSON *json);

#endif
