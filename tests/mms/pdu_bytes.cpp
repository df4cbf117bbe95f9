#include "mms/pdu_bytes.h"

#include <stdexcept>

namespace vzapi::test {
namespace {

int digit_of(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    throw std::invalid_argument("no hexadecimal digit");
}

// A value length and the bytes.
std::string measured(const std::string& bytes) {
    constexpr std::size_t kMostShortLength = 0x1E;
    if (bytes.size() <= kMostShortLength) return static_cast<char>(bytes.size()) + bytes;
    return '\x1F' + uintvar(bytes.size()) + bytes;
}

// What is spelt up to a closing bracket or the end; `spelling` begins behind it then.
std::string bytes_up_to_bracket(std::string_view& spelling) {
    std::string bytes;
    while (!spelling.empty()) {
        const char first = spelling.front();
        if (first == ' ') {
            spelling.remove_prefix(1);
        } else if (first == '(') {
            spelling.remove_prefix(1);
            bytes += measured(bytes_up_to_bracket(spelling));
        } else if (first == ')') {
            spelling.remove_prefix(1);
            return bytes;
        } else if (first == '\'') {
            const std::size_t end = spelling.find('\'', 1);
            bytes += spelling.substr(1, end - 1);
            spelling.remove_prefix(end + 1);
        } else {
            bytes += static_cast<char>(digit_of(first) * 16 + digit_of(spelling.at(1)));
            spelling.remove_prefix(2);
        }
    }
    return bytes;
}

constexpr std::string_view kLeading = "98 't-7' 00 8D 92";

PduSample sample(std::string name, std::string_view spelling) {
    return {std::move(name), pdu_bytes(spelling)};
}

std::string with_leading(std::string_view type, std::string_view rest) {
    return pdu_bytes(type) + pdu_bytes(kLeading) + pdu_bytes(rest);
}

}  // namespace

std::string pdu_bytes(std::string_view spelling) {
    const std::string bytes = bytes_up_to_bracket(spelling);
    if (!spelling.empty()) throw std::invalid_argument("a bracket too many");
    return bytes;
}

std::string uintvar(std::size_t value) {
    std::string bytes(1, static_cast<char>(value & 0x7FU));
    while ((value >>= 7U) != 0) bytes.insert(0, 1, static_cast<char>((value & 0x7FU) | 0x80U));
    return bytes;
}

std::string entry(const std::string& head, const std::string& data) {
    return uintvar(head.size()) + uintvar(data.size()) + head + data;
}

std::string multipart(const std::vector<std::string>& entries) {
    std::string body = uintvar(entries.size());
    for (const std::string& each : entries) body += each;
    return body;
}

std::string retrieved(const std::string& content_type, const std::string& body) {
    return pdu_bytes("8C 84 8D 92 85 04 3A A2 16 EE 84") + content_type + body;
}

std::string notification_pdu() {
    return pdu_bytes(
        "8C 82 98 't-7' 00 8D 92 89 18 80 '+15555550100/TYPE=PLMN' 00 96 07 EA 'Caf' C3 A9 00 8A 80 "
        "8E 02 7D 00 88 05 81 03 03 F4 80 83 'http://mms.example.net/a?id=7' 00");
}

std::string message_pdu() {
    return pdu_bytes(
        "8C 80 98 't-8' 00 8D 90 89 01 81 97 '+15555550101/TYPE=PLMN' 00 86 81 84 18 B3 "
        "89 'application/smil' 00 8A '<s>' 00 02 1F 38 'application/smil' 00 C0 22 '<s>' 00 8E 's.smil' 00 "
        "'<smil><body><par><text src=\"t.txt\"/></par></body></smil>' "
        "0B 05 03 83 81 EA 8E 't.txt' 00 'Caf' C3 A9");
}

std::string delivery_report_pdu() {
    return pdu_bytes(
        "8C 86 8D 90 8B 'm7@example.net' 00 97 '+15555550101/TYPE=PLMN' 00 85 04 3A A2 16 EE 95 81");
}

std::vector<PduSample> smallest_pdus() {
    return {
        {"m-send-req", with_leading("8C 80", "89 01 81 97 'a@b' 00 84 83 'text'")},
        {"m-send-conf", with_leading("8C 81", "92 80")},
        {"m-notification-ind",
         with_leading("8C 82", "8A 80 8E 01 64 88 05 81 03 03 F4 80 83 'http://m/1' 00")},
        {"m-notifyresp-ind", with_leading("8C 83", "95 81")},
        sample("m-retrieve-conf", "8C 84 8D 92 85 04 3A A2 16 EE 84 83 'text'"),
        {"m-acknowledge-ind", with_leading("8C 85", "")},
        sample("m-delivery-ind", "8C 86 8D 92 8B 'm7' 00 97 'a@b' 00 85 04 3A A2 16 EE 95 81"),
        sample("m-read-rec-ind", "8C 87 8D 92 8B 'm7' 00 97 'a@b' 00 89 05 80 'b@c' 00 9B 80"),
        sample("m-read-orig-ind",
               "8C 88 8D 92 8B 'm7' 00 97 'a@b' 00 89 05 80 'b@c' 00 85 04 3A A2 16 EE 9B 81"),
        {"m-forward-req", with_leading("8C 89", "89 01 81 81 'a@b' 00 83 'http://m/1' 00")},
        {"m-forward-conf", with_leading("8C 8A", "92 E1")},
        {"m-mbox-store-req", with_leading("8C 8B", "83 'http://m/1' 00")},
        {"m-mbox-store-conf", with_leading("8C 8C", "A5 80")},
        {"m-mbox-view-req", with_leading("8C 8D", "")},
        {"m-mbox-view-conf", with_leading("8C 8E", "92 80 84 A3 00")},
        {"m-mbox-upload-req", with_leading("8C 8F", "84 83 'text'")},
        {"m-mbox-upload-conf", with_leading("8C 90", "A5 E4")},
        {"m-mbox-delete-req", with_leading("8C 91", "83 'http://m/1' 00 83 'http://m/2' 00")},
        {"m-mbox-delete-conf", with_leading("8C 92", "92 02 81 80")},
        sample("m-mbox-descr", "8C 93 8B 'm7' 00 84 83 'text'"),
        {"m-delete-req", with_leading("8C 94", "83 'http://m/1' 00")},
        {"m-delete-conf", with_leading("8C 95", "92 02 82 E2 83 (82 'http://m/1' 00)")},
        {"m-cancel-req", with_leading("8C 96", "BE 'c-1' 00")},
        {"m-cancel-conf", with_leading("8C 97", "BF 81")},
    };
}

std::vector<PduSample> rich_pdus() {
    return {
        {"m-send-req, rich",
         with_leading(
             "8C 80",
             "85 04 3A A2 16 EE 89 18 80 '+15555550100/TYPE=PLMN' 00 97 '10.0.0.1/TYPE=IPv4' 00 "
             "97 'Joe <joe@example.org>' 00 82 '0000:0000:0000:0000:0000:0000:0000:0001/TYPE=IPv6' 00 "
             "81 '4711' 00 96 (EA 'Gr' C3 BC C3 9F 'e' 00) 8A 'x-extra' 00 "
             "88 06 80 04 3A A2 16 EE 87 05 81 03 03 F4 80 8F 82 94 80 86 80 90 81 9C 80 "
             "9D 06 80 04 3A A2 16 EE 9F 02 7D 00 9E 'r-1' 00 A2 80 A3 80 A4 05 80 'red' 00 "
             "B7 'app' 00 B8 'app2' 00 B9 'aux' 00 BA 84 BB 81 BC 80 84 83 'text'")},
        {"m-send-conf, rich",
         with_leading("8C 81",
                      "92 80 93 'done' 00 8B 'm7@example.net' 00 83 'http://m/1' 00 A5 80 A6 'kept' 00")},
        {"m-notification-ind, rich",
         with_leading(
             "8C 82",
             "8A 83 8E 03 01 00 00 88 04 81 02 0E 10 83 'http://m/1' 00 A7 81 B1 80 B2 ('a' 00 82 83) "
             "B4 80 B5 'by hand' 00 BD 'm6' 00 86 80 8F 81")},
        {"m-retrieve-conf, rich",
         with_leading("8C 84",
                      "85 04 3A A2 16 EE 8B 'm7@example.net' 00 99 80 9A 'all there' 00 "
                      "A0 (81 'first@a' 00) A1 06 81 04 3A A2 16 EE A0 (82 'second@a' 00) A3 83 91 81 "
                      "'X-Mms-Own' 00 'any value' 00 C5 85 84 83 'text'")},
        {"m-delivery-ind, rich",
         pdu_bytes("8C 86 8D 93 8B 'm7' 00 97 'a@b' 00 85 04 3A A2 16 EE 95 87 B6 'gone' 00 B7 'app' 00")},
        {"m-mbox-view-req, rich",
         with_leading("8C 8D",
                      "83 'http://m/1' 00 A3 82 A3 83 A4 05 82 'new' 00 AF 85 B3 02 01 00 A8 85 A8 96 "
                      "A9 80 AB 81")},
        {"m-mbox-view-conf, rich",
         with_leading("8C 8E", "92 80 AD 83 AA 02 80 83 AA 04 81 02 10 00 AC 02 80 E4 84 A3") +
             multipart({entry(pdu_bytes("BE"), pdu_bytes("8C 93 8B 'm7' 00 84 83 'text'"))})},
        {"m-mbox-delete-conf, rich",
         with_leading("8C 92", "83 (81 'http://m/1' 00) 92 02 81 80 83 (82 'http://m/2' 00) 92 02 82 E2")},
    };
}

std::vector<PduSample> pdus_with_bodies() {
    const std::string text = entry(pdu_bytes("03 83 81 EA 8E 'a.txt' 00"), "first");
    const std::string picture = entry(pdu_bytes("(9E 85 'p.jpg' 00)"), pdu_bytes("FF D8 FF 00 01"));
    const std::string inner = multipart({text, entry(pdu_bytes("82"), "<p/>")});
    return {
        {"text alone", retrieved(pdu_bytes("03 83 81 EA"), "text")},
        {"nothing in it", retrieved(pdu_bytes("A3"), multipart({}))},
        {"mixed", retrieved(pdu_bytes("A3"), multipart({text, picture}))},
        {"related", retrieved(pdu_bytes("(B3 89 'application/smil' 00 8A '<r>' 00)"),
                              multipart({picture, entry(pdu_bytes("'application/smil' 00 C0 22 '<r>' 00"),
                                                        "<smil/>")}))},
        {"alternative", retrieved(pdu_bytes("A6"), multipart({text, entry(pdu_bytes("82"), "<p/>")}))},
        {"form data",
         retrieved(pdu_bytes("A4"), multipart({entry(pdu_bytes("83 AE (80 85 'field' 00)"), "value")}))},
        {"nested",
         retrieved(pdu_bytes("B3"), multipart({entry(pdu_bytes("A6 C0 22 '<n>' 00"), inner), picture}))},
        {"unknown types",
         retrieved(pdu_bytes("A3"),
                   multipart({entry(pdu_bytes("80"), "any"), entry(pdu_bytes("(02 03 20)"), "vendor's"),
                              entry(pdu_bytes("'x-own/type' 00"), "own")}))},
        {"other headers",
         retrieved(pdu_bytes("A3"), multipart({entry(pdu_bytes("83 8B 'gzip' 00 8C 99 8D 02 01 00 'X-Own' 00 "
                                                               "'value' 00"),
                                                     "text")}))},
        {"many parameters",
         retrieved(pdu_bytes("A3"),
                   multipart({entry(pdu_bytes("(83 81 EA 85 'n' 00 96 83 90 00 82 90 "
                                              "'own' 00 'v' 00 'two' 00 82 93 04 3A A2 16 EE)"),
                                    "text")}))},
    };
}

std::vector<PduSample> all_pdus() {
    std::vector<PduSample> samples = {{"notification", notification_pdu()},
                                      {"message", message_pdu()},
                                      {"delivery report", delivery_report_pdu()}};
    for (const auto& some : {smallest_pdus(), rich_pdus(), pdus_with_bodies()}) {
        samples.insert(samples.end(), some.begin(), some.end());
    }
    return samples;
}

}  // namespace vzapi::test
