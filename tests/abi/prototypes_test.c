/* The exact type of every exported function for a host in C, and its address. */
#include "abi/header_rows.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

/* NOLINTBEGIN(bugprone-macro-parentheses): a type stands bare in a generic selection. */
#define HAS_TYPE(function, type) \
    _Static_assert(_Generic(&(function), type : 1, default : 0), #function " must have the type " #type)
/* NOLINTEND(bugprone-macro-parentheses) */

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
HAS_TYPE(ODCAPI_Initialize, uint32_t (*)(uint32_t, uint64_t));
HAS_TYPE(ODCAPI_Terminate, uint32_t (*)(uint64_t));
HAS_TYPE(ODCAPI_GetAPIVersion, uint32_t (*)(uint32_t*));
HAS_TYPE(ODCAPI_ValidateDataObject, uint32_t (*)(uint32_t, const DataObject*));
HAS_TYPE(ODCAPI_ParseDataObject, uint32_t (*)(uint32_t, const DataObject*, void*));
HAS_TYPE(ODCAPI_FreeParsedData, uint32_t (*)(uint32_t, void*));
HAS_TYPE(ODCAPI_CreateDataObject, uint32_t (*)(uint32_t, const void*, DataObject*));
HAS_TYPE(ODCAPI_FreeDataObject, uint32_t (*)(DataObject*));
HAS_TYPE(ODCAPI_CreateBegin, uint32_t (*)(void));
HAS_TYPE(ODCAPI_InitializeSupportInfo, uint32_t (*)(void));
HAS_TYPE(ODCAPI_AddField, uint32_t (*)(void));
HAS_TYPE(ODCAPI_DeleteField, uint32_t (*)(void));
HAS_TYPE(ODCAPI_CreateEnd, uint32_t (*)(void));

/* Rows are added at run time: the address of an imported function is no constant for a C compiler, and for
 * the rows of a longer array one takes that of the stub which jumps to it. */
static void add_row(struct FunctionRow* rows, size_t* count, const char* name, void (*address)(void)) {
    rows[*count].name = name;
    rows[*count].address = address;
    ++*count;
}

#define FUNCTION(name) add_row(rows, count, #name, (void (*)(void))(name))

const struct FunctionRow* function_rows(size_t* count) {
    static struct FunctionRow rows[24];
    *count = 0;
    FUNCTION(VZAPI_GetAPIVersion);
    FUNCTION(VZAPI_Initialize);
    FUNCTION(VZAPI_Terminate);
    FUNCTION(ConvertToVersit);
    FUNCTION(ConvertToVersit2);
    FUNCTION(ConvertFromVersit);
    FUNCTION(ValidateVersitData);
    FUNCTION(FreeVersitData);
    FUNCTION(FreeConverterData);
    FUNCTION(DllRegisterServer);
    FUNCTION(DllUnregisterServer);
    FUNCTION(ODCAPI_Initialize);
    FUNCTION(ODCAPI_Terminate);
    FUNCTION(ODCAPI_GetAPIVersion);
    FUNCTION(ODCAPI_ValidateDataObject);
    FUNCTION(ODCAPI_ParseDataObject);
    FUNCTION(ODCAPI_FreeParsedData);
    FUNCTION(ODCAPI_CreateDataObject);
    FUNCTION(ODCAPI_FreeDataObject);
    FUNCTION(ODCAPI_CreateBegin);
    FUNCTION(ODCAPI_InitializeSupportInfo);
    FUNCTION(ODCAPI_AddField);
    FUNCTION(ODCAPI_DeleteField);
    FUNCTION(ODCAPI_CreateEnd);
    return rows;
}
