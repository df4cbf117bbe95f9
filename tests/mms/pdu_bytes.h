// PDUs for tests, spelt as they are looked at: "8C 82 98 't-7' 00 89 (81)".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vzapi::test {

// The bytes of pairs of hexadecimal digits and of texts between single quotes; what is between brackets gets
// its value length in front. Blanks count for nothing.
[[nodiscard]] std::string pdu_bytes(std::string_view spelling);

// `value` as a uintvar.
[[nodiscard]] std::string uintvar(std::size_t value);

// An entry of a multipart body.
[[nodiscard]] std::string entry(const std::string& head, const std::string& data);

// A multipart body of the entries.
[[nodiscard]] std::string multipart(const std::vector<std::string>& entries);

// An m-retrieve-conf with its mandatory headers and the content type and body.
[[nodiscard]] std::string retrieved(const std::string& content_type, const std::string& body);

struct PduSample {
    std::string name;
    std::string bytes;
};

// The mandatory headers of every PDU type; of the same, every header that the type may have; and bodies of
// every kind. All in canonical form.
[[nodiscard]] std::vector<PduSample> smallest_pdus();
[[nodiscard]] std::vector<PduSample> rich_pdus();
[[nodiscard]] std::vector<PduSample> pdus_with_bodies();
[[nodiscard]] std::vector<PduSample> all_pdus();

// A notification, a message with presentation and text, and a delivery report.
[[nodiscard]] std::string notification_pdu();
[[nodiscard]] std::string message_pdu();
[[nodiscard]] std::string delivery_report_pdu();

}  // namespace vzapi::test
