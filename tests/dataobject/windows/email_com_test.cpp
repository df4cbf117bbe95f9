// E-mail items in threads whose COM the host has initialised in one way or another: they are read, and the
// host finds its COM as it was.
#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, on which it depends.
#include <objbase.h>

#include <thread>

#include "dataobject/email_text.h"

namespace {

using namespace vzapi::test;

// What a further initialisation answers: S_OK without COM, S_FALSE with it, RPC_E_CHANGED_MODE in another
// apartment.
HRESULT answer_to(DWORD model) {
    const HRESULT answer = CoInitializeEx(nullptr, model);
    if (SUCCEEDED(answer)) CoUninitialize();
    return answer;
}

void expect_emails_are_read() {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(email_of("<Email><read>false</read></Email>"), "read=0");
        EXPECT_EQ(email_of("<Email><read>false</read>"), "80100013");
    }
}

TEST(EmailItemCom, WithoutComOfTheHost) {
    std::thread([] {
        expect_emails_are_read();
        EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_OK);
    }).join();
}

TEST(EmailItemCom, WithAnApartmentOfTheHost) {
    std::thread([] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        expect_emails_are_read();
        EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_FALSE);
        CoUninitialize();
        EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_OK) << "the host's release was the last";
    }).join();
}

TEST(EmailItemCom, WithTheMultithreadedComOfTheHost) {
    std::thread([] {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        expect_emails_are_read();
        EXPECT_EQ(answer_to(COINIT_MULTITHREADED), S_FALSE);
        CoUninitialize();
        EXPECT_EQ(answer_to(COINIT_APARTMENTTHREADED), S_OK) << "the host's release was the last";
    }).join();
}

}  // namespace
