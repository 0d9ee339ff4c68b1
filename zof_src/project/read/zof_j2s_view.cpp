// The project file and the `view` object of a view file. The project file's tree is kept between two steps: its record
// is decoded first, and the list of its views is created only when the project object has its lists.
#include <cstdio>

#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static struct {
    zof_rootjson_t json; // from zof_j2s_get_prj_attr until the view names are read
} g_prj;

static const reflect_item_t view_file_tbl[] = {CSON_KNOWN("view"), CSON_KNOWN("controls"), CSON_END};
static const reflect_item_t views_tbl[] = {CSON_KNOWN("pageId"), CSON_KNOWN("pageName"), CSON_END};

// Allocates a zeroed record and decodes it; shared by all readers of whole files.
template <typename T> static T *record_of(cJSON *json, s32 (*decode)(cJSON *, T *)) {
    auto *record = (T *)(zof_malloc(sizeof(T)));
    if (record) {
        decode(json, record);
    }
    return record;
}

zof_view_attr_t *zof_j2s_view_open(const char *path, cJSON **root) {
    *root = nullptr;
    if (!path) {
        return nullptr;
    }
    zof_rootjson_t file = zof_j2s_open(path);
    Freebuff(file.content);
    if (!file.root) {
        return nullptr;
    }
    const zof_fault_scope scope(path, file.root);
    csonKeys(file.root, view_file_tbl);
    cJSON *view = cJSON_GetObjectItem(file.root, "view");
    if (!cJSON_IsObject(view)) {
        zof_fault_at(view ? view : file.root, "%s", view ? "expected an object" : "view is missing");
    }
    zof_view_attr_t *record = cJSON_IsObject(view) ? record_of(view, GetViewStruct) : nullptr;
    if (record) {
        *root = file.root;
    } else {
        cJSON_Delete(file.root);
    }
    return record;
}

zof_view_attr_t *zof_j2s_view(const char *path) {
    cJSON *root = nullptr;
    zof_view_attr_t *record = zof_j2s_view_open(path, &root);
    cJSON_Delete(root);
    return record;
}

zof_prj_attr_t *zof_j2s_get_prj_attr(const char *path) {
    if (!path) {
        return nullptr;
    }
    RootJsonDel(&g_prj.json);
    g_prj.json = zof_j2s_open(path);
    if (!g_prj.json.root) {
        return nullptr;
    }
    const zof_fault_scope scope(path, g_prj.json.root);
    zof_prj_attr_t *record = record_of(g_prj.json.root, GetPrjStruct);
    static const char *const sides[] = {"width", "height"};
    for (const char *key : sides) {
        const cJSON *value = cJSON_GetObjectItem(g_prj.json.root, key);
        if (!value || (cJSON_IsNumber(value) && value->valuedouble < 1)) { // another kind has been reported
            char number[32];
            std::snprintf(number, sizeof number, "%.15g", value ? value->valuedouble : 0);
            zof_fault_at(value ? value : g_prj.json.root, "%s is %s; the display's own size is used",
                         value ? number : key, value ? "not from 1 to 4294967295" : "missing");
        }
    }
    return record;
}

static int name_compare(void *data, void *key) {
    const zof_view_name_t *entry = (const zof_view_name_t *)data;
    return entry && key && entry->id == *(const u32 *)key ? 0 : 1;
}

s32 zof_view_name_list_add(db_list *list, zof_view_name_t *entry) {
    return list && entry ? __db_list_put_tail(list, entry) : -1;
}

static zof_view_name_t *view_name_of(cJSON *entry) {
    cJSON *id = cJSON_GetObjectItem(entry, "pageId");
    const char *name = cJSON_GetStringValue(cJSON_GetObjectItem(entry, "pageName"));
    if (!cJSON_IsNumber(id) || !name) {
        return nullptr;
    }
    auto *made = (zof_view_name_t *)(zof_malloc(sizeof(zof_view_name_t)));
    if (!made) {
        return nullptr;
    }
    made->id = (u32)id->valueint;
    made->name = zof_text_copy(name);
    return made;
}

// Reports why an entry of `views` names no view.
static void name_missing_report(const cJSON *entry) {
    const cJSON *id = cJSON_GetObjectItem(entry, "pageId"), *name = cJSON_GetObjectItem(entry, "pageName");
    const bool bad_id = !cJSON_IsNumber(id);
    const cJSON *place = bad_id ? id : name;
    if (!cJSON_IsObject(entry)) {
        zof_fault_at(entry, "expected an object; it is left out");
    } else if (!place) {
        zof_fault_at(entry, "%s is missing; the entry is left out", bad_id ? "pageId" : "pageName");
    } else {
        zof_fault_at(place, "expected %s; the entry is left out", bad_id ? "a number" : "a text");
    }
}

static void view_name_add(db_list *list, cJSON *entry) {
    csonKeys(entry, views_tbl);
    zof_view_name_t *name = view_name_of(entry);
    if (!name) {
        name_missing_report(entry);
        return;
    }
    const auto *former = (const zof_view_name_t *)__db_list_search_node(list, &name->id);
    if (former) {
        zof_fault_at(cJSON_GetObjectItem(entry, "pageId"), "%s has the pageId %u already; this entry is left out",
                     former->name ? former->name : "", name->id);
    }
    if (former || zof_view_name_list_add(list, name) != 0) {
        zof_free(name->name);
        zof_free(name);
    }
}

s32 zof_j2s_view_name_list_get(db_list *list) {
    if (!list || !g_prj.json.root) {
        return -1;
    }
    {
        const zof_fault_scope scope(zof_prj_file_path(), g_prj.json.root);
        cJSON *views = cJSON_GetObjectItem(g_prj.json.root, "views");
        if (!cJSON_IsArray(views)) {
            zof_fault_at(views ? views : g_prj.json.root, "%s; the project has no view",
                         views ? "expected an array" : "views is missing");
            views = nullptr;
        }
        cJSON *entry = nullptr;
        cJSON_ArrayForEach(entry, views) {
            view_name_add(list, entry);
        }
    }
    RootJsonDel(&g_prj.json);
    return 0;
}

db_list *zof_view_name_list_get(void *arg) {
    (void)arg;
    db_list *list = db_list_create();
    if (!list) {
        return nullptr;
    }
    list->compare = name_compare;
    zof_j2s_view_name_list_get(list);
    return list;
}
