#include "vzconv/result_text.h"

#include <cstdio>

namespace vzconv {
namespace {

struct ResultRow {
    ResultCode code;
    std::string_view text;
};

constexpr ResultRow kResults[] = {
    {VZ_OK, "success"},
    {VZ_ERR_INVALID_PARAM, "the library was given an argument that it cannot use"},
    {VZ_ERR_UNKNOWN_TYPE, "the library does not know this kind of record"},
    {VZ_ERR_INVALID_TEXT, "the text is no object of this kind in a version that the library reads"},
    {VZ_ERR_VERSION, "the library does not have the interface version that this program needs"},
    {VZ_ERR_UNEXPECTED, "something unforeseen went wrong inside the library"},
    {VZ_ERR_POINTER, "the library was given memory that it cannot read"},
    {VZ_ERR_BAD_VALUE, "the library does not take a record of this size"},
    {VZ_ERR_OUT_OF_MEMORY, "out of memory"},
    {VZ_ERR_OLE_OUT_OF_MEMORY, "out of memory for a string"},
};

std::string_view text_of(ResultCode code) {
    for (const ResultRow& row : kResults) {
        if (row.code == code) return row.text;
    }
    return "the library gives no reason";
}

}  // namespace

std::string result_text(ResultCode code) {
    return result_text(code, text_of(code));
}

std::string result_text(ResultCode code, std::string_view words) {
    char number[16];
    std::snprintf(number, sizeof number, " (0x%08X)", static_cast<unsigned>(code));
    return std::string(words) + number;
}

}  // namespace vzconv
