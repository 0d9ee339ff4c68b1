# The panel's resource folder: ids of its controls as C enumerations, fonts and pictures placed by scripts.
set(ZOF_BENCH_IDS_DIR ${PROJECT_BINARY_DIR}/ids)
add_custom_target(bench_ids)
