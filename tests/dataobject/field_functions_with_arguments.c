/* The functions that stand for a building field by field, called as hosts do that have arguments for them. */
#include <stddef.h>

#include "vzapi/odcapi.h"

typedef void (*AnyFunction)(void);
typedef ResultCode (*WithArguments)(uint64_t, const void*, uint64_t, const void*, uint64_t, const void*,
                                    double);

unsigned field_functions_that_fail(uint64_t number, const void* pointer);

/* How many of the five answer anything but VZ_OK. */
unsigned field_functions_that_fail(uint64_t number, const void* pointer) {
    const AnyFunction functions[] = {
        (AnyFunction)ODCAPI_CreateBegin, (AnyFunction)ODCAPI_InitializeSupportInfo,
        (AnyFunction)ODCAPI_AddField,    (AnyFunction)ODCAPI_DeleteField,
        (AnyFunction)ODCAPI_CreateEnd,
    };
    unsigned failures = 0;
    for (size_t i = 0; i < sizeof functions / sizeof functions[0]; ++i) {
        const WithArguments function = (WithArguments)functions[i];
        if (function(number, pointer, number, pointer, number, pointer, 0.5) != VZ_OK) ++failures;
    }
    return failures;
}
