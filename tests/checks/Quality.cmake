# The page on quality is what the kept results say.

add_test(NAME quality_page COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/scripts/quality" --check)
