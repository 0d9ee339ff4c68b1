// The catalogue as JSON, for programs: the reference pages, the design page, the Python library; and as JSON Schemas,
// for editors.
#ifndef ZOF_CAT_JSON_H
#define ZOF_CAT_JSON_H

#include <string>

// The whole catalogue as one object, indented.
std::string cat_json(void);

// Schemas (draft-07), by name: "project", "link", "view", "theme", "language". Empty for another name.
extern const char *const cat_schema_names[]; // null at the end
std::string cat_schema(const std::string &name);

#endif
