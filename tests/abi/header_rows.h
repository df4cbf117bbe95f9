/* The tables that the C tests of the headers hand to the test program, which walks them. */
#ifndef VZAPI_TESTS_HEADER_ROWS_H
#define VZAPI_TESTS_HEADER_ROWS_H

#include <stddef.h>
#include <stdint.h>

#if defined(__cplusplus)
extern "C" {
#endif

/* A record, or a member of one, as the C compiler lays it out and as the interface fixes it. */
struct LayoutRow {
    const char* name;
    size_t offset;
    size_t width;
    size_t expectedOffset;
    size_t expectedWidth;
};

/* A named constant, as the C compiler sees it and as the interface fixes it. */
struct ConstantRow {
    const char* name;
    uint32_t value;
    uint32_t expected;
};

/* An exported function. */
struct FunctionRow {
    const char* name;
    void (*address)(void); /* NOLINT(modernize-redundant-void-arg): C needs it */
};

/* Each returns the first row of its table and sets `*count`. */
const struct LayoutRow* layout_rows(size_t* count);
const struct ConstantRow* constant_rows(size_t* count);
const struct FunctionRow* function_rows(size_t* count);

#if defined(__cplusplus)
}
#endif

#endif
