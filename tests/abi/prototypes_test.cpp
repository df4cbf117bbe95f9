// The exact type of every exported function for a host in C++, and that both languages reach the same
// functions.
#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "abi/header_rows.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace {

template <class Expected, class Actual>
constexpr bool has_type(Actual*) {
    return std::is_same_v<Expected, Actual>;
}

static_assert(has_type<uint32_t() noexcept>(VZAPI_GetAPIVersion));
static_assert(has_type<uint32_t(uint32_t)>(VZAPI_Initialize), "the one function that lets an exception out");
static_assert(has_type<uint32_t() noexcept>(VZAPI_Terminate));
static_assert(has_type<uint32_t(uint32_t, const void*, VersitData*) noexcept>(ConvertToVersit));
static_assert(has_type<uint32_t(uint64_t, uint32_t, uint64_t, uint32_t, const void*, VersitData*) noexcept>(
    ConvertToVersit2));
static_assert(has_type<uint32_t(uint32_t, const VersitData*, void*) noexcept>(ConvertFromVersit));
static_assert(has_type<uint32_t(uint32_t, const VersitData*) noexcept>(ValidateVersitData));
static_assert(has_type<uint32_t(VersitData*) noexcept>(FreeVersitData));
static_assert(has_type<uint32_t(uint32_t, void*) noexcept>(FreeConverterData));
static_assert(has_type<RegistrationResult()>(DllRegisterServer));
static_assert(has_type<RegistrationResult()>(DllUnregisterServer));
static_assert(sizeof(RegistrationResult) == 4);
static_assert(has_type<uint32_t(uint32_t, uint64_t) noexcept>(ODCAPI_Initialize));
static_assert(has_type<uint32_t(uint64_t) noexcept>(ODCAPI_Terminate));
static_assert(has_type<uint32_t(uint32_t*) noexcept>(ODCAPI_GetAPIVersion));
static_assert(has_type<uint32_t(uint32_t, const DataObject*) noexcept>(ODCAPI_ValidateDataObject));
static_assert(has_type<uint32_t(uint32_t, const DataObject*, void*) noexcept>(ODCAPI_ParseDataObject));
static_assert(has_type<uint32_t(uint32_t, void*) noexcept>(ODCAPI_FreeParsedData));
static_assert(has_type<uint32_t(uint32_t, const void*, DataObject*) noexcept>(ODCAPI_CreateDataObject));
static_assert(has_type<uint32_t(DataObject*) noexcept>(ODCAPI_FreeDataObject));
static_assert(has_type<uint32_t() noexcept>(ODCAPI_CreateBegin));
static_assert(has_type<uint32_t() noexcept>(ODCAPI_InitializeSupportInfo));
static_assert(has_type<uint32_t() noexcept>(ODCAPI_AddField));
static_assert(has_type<uint32_t() noexcept>(ODCAPI_DeleteField));
static_assert(has_type<uint32_t() noexcept>(ODCAPI_CreateEnd));

using AnyFunction = void (*)();

template <class Function>
AnyFunction address(Function* function) {
    return reinterpret_cast<AnyFunction>(function);
}

const std::vector<std::string> kListedNames = {
#include "exported_names.inc"
};

std::span<const FunctionRow> functions_seen_from_c() {
    std::size_t count = 0;
    const FunctionRow* rows = function_rows(&count);
    return {rows, count};
}

TEST(Prototypes, EveryListedFunctionIsDeclaredAndHasAnAddress) {
    std::vector<std::string> names;
    for (const FunctionRow& row : functions_seen_from_c()) {
        names.emplace_back(row.name);
        EXPECT_NE(row.address, nullptr) << row.name;
    }
    EXPECT_EQ(names, kListedNames);
}

TEST(Prototypes, CAndCPlusPlusReachTheSameFunctions) {
    const std::array<AnyFunction, 24> addresses = {
        address(VZAPI_GetAPIVersion),
        address(VZAPI_Initialize),
        address(VZAPI_Terminate),
        address(ConvertToVersit),
        address(ConvertToVersit2),
        address(ConvertFromVersit),
        address(ValidateVersitData),
        address(FreeVersitData),
        address(FreeConverterData),
        address(DllRegisterServer),
        address(DllUnregisterServer),
        address(ODCAPI_Initialize),
        address(ODCAPI_Terminate),
        address(ODCAPI_GetAPIVersion),
        address(ODCAPI_ValidateDataObject),
        address(ODCAPI_ParseDataObject),
        address(ODCAPI_FreeParsedData),
        address(ODCAPI_CreateDataObject),
        address(ODCAPI_FreeDataObject),
        address(ODCAPI_CreateBegin),
        address(ODCAPI_InitializeSupportInfo),
        address(ODCAPI_AddField),
        address(ODCAPI_DeleteField),
        address(ODCAPI_CreateEnd),
    };
    const std::span<const FunctionRow> rows = functions_seen_from_c();
    ASSERT_EQ(rows.size(), addresses.size());
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].address, addresses[i]) << rows[i].name;
}

TEST(Prototypes, TheVersionComesThroughTheAddressThatCSees) {
    const FunctionRow row = functions_seen_from_c().front();
    ASSERT_STREQ(row.name, "VZAPI_GetAPIVersion");
    EXPECT_EQ(reinterpret_cast<uint32_t (*)()>(row.address)(), 16U);
}

}  // namespace
