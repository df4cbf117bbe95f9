// How many headers and parameters a PDU may have. Each becomes an entry of the record, and most also a block
// and a string, while it may be no longer than one octet: without a limit, memory would be some hundred times
// the PDU.
#pragma once

#include <cstddef>

namespace vzapi::mms {

// Counts the entries of one PDU while they are read.
class EntryLimit {
public:
    // 4096, and one more for each 16 octets: no number of entries is too large when they have 16 octets on
    // average, as a recipient with its telephone number has.
    [[nodiscard]] static constexpr std::size_t of(std::size_t pdu_size) noexcept {
        return 4096 + pdu_size / 16;
    }

    explicit EntryLimit(std::size_t pdu_size) noexcept : left_(of(pdu_size)) {}

    // Takes one. False when there is none left; the limit counts as exceeded then.
    [[nodiscard]] bool take() noexcept {
        if (left_ == 0) {
            is_exceeded_ = true;
            return false;
        }
        --left_;
        return true;
    }

    [[nodiscard]] bool is_exceeded() const noexcept { return is_exceeded_; }

private:
    std::size_t left_;
    bool is_exceeded_ = false;
};

}  // namespace vzapi::mms
