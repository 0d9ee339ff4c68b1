// The rows of all control types, in the order of their numbers.
#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_in.h"

#define ROW(NAME, type) &zof_##type##_class,
const zof_ctrl_class_t *const zof_ctrl_classes[] = {ZOF_CTRL_TYPES(ROW)};

#define FILE_NAME(NAME, type) zof_##type##_class.name,
const char *const themeFileName[] = {ZOF_CTRL_TYPES(FILE_NAME)};

const zof_ctrl_class_t *zof_ctrl_class_get(u32 type) {
    return type < ZOF_CTRL_TYPE_COUNT ? zof_ctrl_classes[type] : nullptr;
}
