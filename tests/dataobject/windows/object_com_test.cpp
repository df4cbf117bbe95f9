// What the last termination of either family does to the COM of its thread: it is initialised, and released
// again only where nobody had initialised it before. Hosts that count theirs rely on it.
#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, on which it depends.
#include <objbase.h>

#include <thread>

#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace {

// What a further initialisation answers: S_OK without COM, S_FALSE with it, RPC_E_CHANGED_MODE in another
// apartment.
HRESULT answer_to(DWORD model) {
    const HRESULT answer = CoInitializeEx(nullptr, model);
    if (SUCCEEDED(answer)) CoUninitialize();
    return answer;
}

std::uint32_t terminate_objects() {
    return ODCAPI_Terminate(0);
}

std::uint32_t terminate_conversions() {
    return VZAPI_Terminate();
}

using Terminate = std::uint32_t (*)();

constexpr Terminate kFamilies[] = {terminate_objects, terminate_conversions};

TEST(TerminateCom, WithoutComOfTheHostNoneIsLeft) {
    for (const Terminate terminate : kFamilies) {
        std::thread([terminate] {
            EXPECT_EQ(terminate(), 0U);
            EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_OK);
        }).join();
    }
}

TEST(TerminateCom, AHostThatHasComFindsItInitialisedOnceMore) {
    for (const Terminate terminate : kFamilies) {
        for (const DWORD model : {COINIT_MULTITHREADED, COINIT_APARTMENTTHREADED}) {
            std::thread([terminate, model] {
                ASSERT_EQ(CoInitializeEx(nullptr, model), S_OK);
                EXPECT_EQ(terminate(), 0U);
                CoUninitialize();
                EXPECT_EQ(answer_to(model), S_FALSE) << "the host's release was the last";
                CoUninitialize();
                EXPECT_EQ(answer_to(model), S_OK) << "initialised more than once";
            }).join();
        }
    }
}

}  // namespace
