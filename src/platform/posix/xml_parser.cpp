// libexpat, with handlers that keep nothing but the children of one element.
#include "platform/xml_parser.h"

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>
#include <string>

#include "platform/allocation_gate.h"
#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

// The parser's own memory fails at will in tests, too.
constexpr XML_Memory_Handling_Suite kMemory = {
    [](std::size_t size) { return allocation_allowed() ? std::malloc(size) : nullptr; },
    [](void* block, std::size_t size) { return allocation_allowed() ? std::realloc(block, size) : nullptr; },
    [](void* block) { std::free(block); },
};

struct ParserDeleter {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};

class Children {
public:
    Children(std::u16string_view parent, std::vector<XmlElement>& children)
        : parser_(XML_ParserCreate_MM("UTF-8", &kMemory, nullptr)),
          parent_(utf16_to_utf8(parent)),
          children_(children) {
        if (!parser_) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), on_start, on_end);
        XML_SetCharacterDataHandler(parser_.get(), on_text);
    }

    XmlOutcome read(std::string_view document) {
        constexpr std::size_t kMostBytes = 1U << 20;  // in one call; far below INT_MAX
        bool is_well_formed = true;
        do {
            const std::string_view part = document.substr(0, kMostBytes);
            document.remove_prefix(part.size());
            const int size = static_cast<int>(part.size());
            is_well_formed = XML_Parse(parser_.get(), part.data(), size, document.empty()) == XML_STATUS_OK;
        } while (is_well_formed && !document.empty());
        if (failure_) std::rethrow_exception(failure_);
        if (XML_GetErrorCode(parser_.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
        return is_well_formed ? XmlOutcome::Read : XmlOutcome::Refused;
    }

private:
    // The parser is C: nothing may be thrown through it.
    template <class Action>
    static void handle(void* data, Action action) noexcept {
        auto& self = *static_cast<Children*>(data);
        if (self.failure_) return;
        try {
            action(self);
        } catch (...) {
            self.failure_ = std::current_exception();
            XML_StopParser(self.parser_.get(), XML_FALSE);
        }
    }

    static void on_start(void* data, const char* name, const char** /*attributes*/) noexcept {
        handle(data, [name](Children& self) { self.start(name); });
    }
    static void on_end(void* data, const char* name) noexcept {
        handle(data, [name](Children& self) { self.end(name); });
    }
    static void on_text(void* data, const char* bytes, int size) noexcept {
        handle(data, [bytes, size](Children& self) {
            if (self.is_in_child()) self.text_.append(bytes, static_cast<std::size_t>(size));
        });
    }

    [[nodiscard]] bool is_in_child() const noexcept { return parent_depth_ != 0 && depth_ > parent_depth_; }

    void start(std::string_view name) {
        ++depth_;
        if (found_ || name != parent_) return;
        found_ = true;
        parent_depth_ = depth_;
    }

    void end(std::string_view name) {
        if (is_in_child() && depth_ == parent_depth_ + 1) {
            children_.push_back({utf8_to_utf16(name), utf8_to_utf16(text_)});
            text_.clear();
        }
        if (depth_ == parent_depth_) parent_depth_ = 0;
        --depth_;
    }

    const std::unique_ptr<XML_ParserStruct, ParserDeleter> parser_;
    const std::string parent_;
    std::vector<XmlElement>& children_;
    std::string text_;  // of the child that is being read
    std::size_t depth_ = 0;
    std::size_t parent_depth_ = 0;  // 0: outside the parent
    bool found_ = false;
    std::exception_ptr failure_;
};

}  // namespace

XmlOutcome parse_reduced_xml(std::u16string_view document, std::u16string_view parent,
                             std::vector<XmlElement>& children) {
    return Children(parent, children).read(utf16_to_utf8(document));
}

}  // namespace vzapi::platform
