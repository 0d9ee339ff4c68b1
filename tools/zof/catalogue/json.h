// The catalogue as JSON for programs (the reference pages, the design page, the Python library) and as JSON Schemas for
// editors.
#ifndef ZOF_CAT_JSON_H
#define ZOF_CAT_JSON_H

#include <string>

// Returns the whole catalogue as one object, indented.
std::string cat_json(void);

// Returns the types of the design page that follow from the catalogue, as TypeScript.
std::string cat_page_types(void);

// The names of the schemas (draft-07), such as "view", and the schema with one of these names.
extern const char *const cat_schema_names[]; // null-terminated
std::string cat_schema(const std::string &name);

#endif
