// A multimedia message through the interface: read, written, read again, released. Whatever the bytes, the
// results are those that the interface promises, and what is written of a record reads as the same record.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz_check.h"
#include "mms/multimedia_text.h"
#include "vzapi/odcapi.h"

namespace vzapi::fuzz {
namespace {

using namespace vzapi::test;

void check_validation(std::string bytes, ResultCode read) {
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
    const ResultCode result = ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in);
    check(result == read, "what is read is valid, and nothing else");
}

void check_way_back(const ReadMultimedia& message) {
    ResultCode result = VZ_OK;
    const std::string pdu = written(message.item(), result);
    if (result != VZ_OK) {
        check(result == VZ_ERR_BAD_VALUE, "result of writing " + std::to_string(result));
        return check(pdu.empty(), "a refused record gives nothing");
    }
    const ReadMultimedia again(pdu);
    check(again.result() == VZ_OK, "can be read again");
    const std::string before = shown_as_whole(message.item());
    const std::string after = shown(again.item());
    check(after == before, "before\n" + before + "after\n" + after);
    check(written(again.item()) == pdu, "is written the same again");
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    if (size > kLongestInput) return 0;
    const std::string bytes(data, data + size);
    {
        const ReadMultimedia message(bytes);
        const ResultCode result = message.result();
        check(result == VZ_OK || result == VZ_ERR_BAD_VALUE, "result " + std::to_string(result));
        if (size > 0) check_validation(bytes, result);
        if (result == VZ_OK) check_way_back(message);
    }
    return 0;
}
