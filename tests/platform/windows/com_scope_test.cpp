#include "platform/com_scope.h"

#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, on which it depends.
#include <objbase.h>

#include <thread>

namespace vzapi::platform {
namespace {

// What a further initialisation answers: S_OK without COM, S_FALSE with it, RPC_E_CHANGED_MODE in another
// apartment.
HRESULT answer_to(DWORD model) {
    const HRESULT answer = CoInitializeEx(nullptr, model);
    if (SUCCEEDED(answer)) CoUninitialize();
    return answer;
}

// In a thread of its own, which nobody has initialised COM for.
template <class Action>
void in_new_thread(Action action) {
    std::thread(action).join();
}

TEST(ComScope, InitialisesComAndReleasesIt) {
    in_new_thread([] {
        EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_OK);
        {
            const ComScope scope;
            EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_FALSE);
        }
        EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_OK);
    });
}

TEST(ComScope, GoesAlongWithAnApartmentOfTheHost) {
    in_new_thread([] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        {
            const ComScope scope;
            EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_FALSE);
        }
        EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_FALSE) << "the host's own initialisation is gone";
        CoUninitialize();
    });
}

}  // namespace
}  // namespace vzapi::platform
