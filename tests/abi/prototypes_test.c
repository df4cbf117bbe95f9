/* The exact type of every exported function for a host in C, and its address. */
#include "abi/header_rows.h"
#include "vzapi/vzapi.h"

/* NOLINTNEXTLINE(bugprone-macro-parentheses): a type stands bare in a generic selection. */
#define HAS_TYPE(function, type) \
    _Static_assert(_Generic(&(function), type : 1, default : 0), #function " must have the type " #type)

HAS_TYPE(VZAPI_GetAPIVersion, uint32_t (*)(void));
HAS_TYPE(VZAPI_Initialize, uint32_t (*)(uint32_t));
HAS_TYPE(VZAPI_Terminate, uint32_t (*)(void));
HAS_TYPE(ConvertToVersit, uint32_t (*)(uint32_t, const void*, VersitData*));
HAS_TYPE(ConvertToVersit2, uint32_t (*)(uint64_t, uint32_t, uint64_t, uint32_t, const void*, VersitData*));
HAS_TYPE(ConvertFromVersit, uint32_t (*)(uint32_t, const VersitData*, void*));
HAS_TYPE(ValidateVersitData, uint32_t (*)(uint32_t, const VersitData*));
HAS_TYPE(FreeVersitData, uint32_t (*)(VersitData*));
HAS_TYPE(FreeConverterData, uint32_t (*)(uint32_t, void*));
HAS_TYPE(DllRegisterServer, RegistrationResult (*)(void));
HAS_TYPE(DllUnregisterServer, RegistrationResult (*)(void));

#define FUNCTION(name) \
    { #name, (void (*)(void))(name) }

const struct FunctionRow* function_rows(size_t* count) {
    static struct FunctionRow rows[11];
    /* Filled at run time: the address of an imported function is no constant for a C compiler. */
    const struct FunctionRow functions[] = {
        FUNCTION(VZAPI_GetAPIVersion), FUNCTION(VZAPI_Initialize),    FUNCTION(VZAPI_Terminate),
        FUNCTION(ConvertToVersit),     FUNCTION(ConvertToVersit2),    FUNCTION(ConvertFromVersit),
        FUNCTION(ValidateVersitData),  FUNCTION(FreeVersitData),      FUNCTION(FreeConverterData),
        FUNCTION(DllRegisterServer),   FUNCTION(DllUnregisterServer),
    };
    *count = sizeof(functions) / sizeof(functions[0]);
    for (size_t i = 0; i < *count; ++i) rows[i] = functions[i];
    return rows;
}
