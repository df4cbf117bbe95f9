// Records that a caller builds: containers, presentations and names that the writer adds.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"

namespace vzapi::test {
namespace {

constexpr std::uint32_t kMayAdd = 0;

// "type/name/id/location" of each part.
std::string outline(const MultimediaItem& item) {
    std::string text;
    for (std::uint32_t i = 0; i < item.partCount; ++i) {
        const MultimediaPart& part = item.parts[i];
        text += std::to_string(part.container) + " " + shown(part.contentType);
        for (std::uint32_t k = 0; k < part.parameterCount; ++k) {
            text += ";" + shown(part.parameters[k].name) + "=" + shown(part.parameters[k].value.text);
        }
        text += " " + shown(part.name) + " " + shown(part.contentId) + " " + shown(part.contentLocation);
        text += (part.flags & VZ_MMS_PART_PRESENTATION) != 0 ? " *\n" : "\n";
    }
    return text;
}

MultimediaBuilder sendable(std::uint32_t flags) {
    MultimediaBuilder builder(VZ_MMS_SEND_REQ, flags);
    builder.sendable();
    return builder;
}

constexpr std::string_view kSmilBegin =
    "<smil><head><layout><root-layout/>"
    "<region id=\"Image\" top=\"0%\" left=\"0%\" width=\"100%\" height=\"70%\" fit=\"meet\"/>"
    "<region id=\"Text\" top=\"70%\" left=\"0%\" width=\"100%\" height=\"30%\" fit=\"scroll\"/>"
    "</layout></head><body>";
constexpr std::string_view kSmilEnd = "</body></smil>";

TEST(MultimediaPresentation, APageForEachPictureWithWhatFollowsIt) {
    MultimediaBuilder builder = sendable(kMayAdd);
    builder.part(u"text/plain", "before");
    builder.part(u"image/jpeg", "1");
    builder.last().contentLocation = builder.own(u"one.jpg");
    builder.part(u"text/plain", "a");
    builder.part(u"audio/amr", "b");
    builder.part(u"text/plain", "c");
    builder.part(u"text/x-vCard", "card");
    builder.part(u"video/3gpp", "d");
    builder.last().contentId = builder.own(u"film");
    builder.part(u"image/gif", "e");
    builder.last().name = builder.own(u"e.gif");
    const ReadMultimedia read(written(builder.item()));
    ASSERT_EQ(read.result(), VZ_OK);
    EXPECT_EQ(
        outline(read.item()),
        "0 application/vnd.wap.multipart.related;type=application/smil;start=<presentation> Part_0.1 - -\n"
        "1 application/smil presentation.smil presentation presentation.smil *\n"
        "1 text/plain Part_1.2 - Part_1.2\n"
        "1 image/jpeg one.jpg - one.jpg\n"
        "1 text/plain Part_1.4 - Part_1.4\n"
        "1 audio/amr Part_1.5 - Part_1.5\n"
        "1 text/plain Part_1.6 - Part_1.6\n"
        "1 text/x-vCard Part_1.7 - -\n"
        "1 video/3gpp film film -\n"
        "1 image/gif e.gif - e.gif\n");
    EXPECT_EQ(read.data(1), std::string(kSmilBegin) +
                                "<par dur=\"5000ms\"><text src=\"Part_1.2\" region=\"Text\"/></par>"
                                "<par dur=\"5000ms\"><img src=\"one.jpg\" region=\"Image\"/>"
                                "<text src=\"Part_1.4\" region=\"Text\"/><audio src=\"Part_1.5\"/></par>"
                                "<par dur=\"5000ms\"><text src=\"Part_1.6\" region=\"Text\"/></par>"
                                "<par dur=\"5000ms\"><video src=\"cid:film\" region=\"Image\"/></par>"
                                "<par dur=\"5000ms\"><img src=\"e.gif\" region=\"Image\"/></par>" +
                                std::string(kSmilEnd));
}

TEST(MultimediaPresentation, ReferencesAreEscaped) {
    MultimediaBuilder builder = sendable(kMayAdd);
    builder.container(u"application/vnd.wap.multipart.related");
    builder.part(u"image/png", "1", 1);
    builder.last().contentLocation = builder.own(u"<&>\"'\t\x1\xFFFF\u00E9\U0001F600.png");
    const ReadMultimedia read(written(builder.item()));
    EXPECT_EQ(read.data(1), std::string(kSmilBegin) +
                                "<par dur=\"5000ms\"><img src=\"&lt;&amp;&gt;&quot;'%09%01%EF%BF%BF\xC3\xA9"
                                "\xF0\x9F\x98\x80.png\" region=\"Image\"/></par>" +
                                std::string(kSmilEnd));
}

TEST(MultimediaPresentation, NamesThatAreTakenAreNumbered) {
    MultimediaBuilder builder = sendable(kMayAdd);
    builder.part(u"image/png", "1");
    builder.last().contentLocation = builder.own(u"a.png");
    builder.part(u"image/png", "2");
    builder.last().name = builder.own(u"a.png");
    builder.part(u"image/png", "3");
    builder.last().contentLocation = builder.own(u"presentation.smil");
    builder.last().contentId = builder.own(u"presentation");
    const ReadMultimedia read(written(builder.item()));
    EXPECT_EQ(
        outline(read.item()),
        "0 application/vnd.wap.multipart.related;type=application/smil;start=<presentation_2> Part_0.1 - -\n"
        "1 application/smil presentation_2.smil presentation_2 presentation_2.smil *\n"
        "1 image/png a.png - a.png\n"
        "1 image/png;name=a.png a.png - a_2.png\n"
        "1 image/png presentation.smil presentation presentation.smil\n");
}

TEST(MultimediaPresentation, TheFlagForbidsIt) {
    MultimediaBuilder builder = sendable(VZ_MMS_NO_PRESENTATION);
    builder.part(u"image/jpeg", "1");
    builder.part(u"text/plain", "2");
    EXPECT_EQ(outline(ReadMultimedia(written(builder.item())).item()),
              "0 application/vnd.wap.multipart.mixed Part_0.1 - -\n"
              "1 image/jpeg Part_1.1 - -\n"
              "1 text/plain Part_1.2 - -\n");
}

TEST(MultimediaPresentation, OneThatIsThereIsReferredTo) {
    for (const std::uint32_t flags : {0U, std::uint32_t{VZ_MMS_PART_PRESENTATION}}) {
        MultimediaBuilder builder = sendable(kMayAdd);
        builder.part(u"image/jpeg", "1");
        builder.part(flags == 0 ? u"application/smil" : u"application/xhtml+xml", "<x/>");
        builder.last().flags = flags;
        const std::string type = shown(builder.last().contentType);
        EXPECT_EQ(outline(ReadMultimedia(written(builder.item())).item()),
                  "0 application/vnd.wap.multipart.related;type=" + type +
                      ";start=<presentation> Part_0.1 - -\n"
                      "1 image/jpeg Part_1.1 - -\n"
                      "1 " +
                      type + " presentation presentation - *\n");
    }
}

TEST(MultimediaPresentation, BodiesThatNeedNoneGetNone) {
    MultimediaBuilder alone = sendable(kMayAdd);
    alone.part(u"image/jpeg", "1");
    EXPECT_EQ(outline(ReadMultimedia(written(alone.item())).item()), "0 image/jpeg Part_1.1 - -\n");
    MultimediaBuilder cards = sendable(kMayAdd);
    cards.part(u"text/x-vCard", "1");
    cards.part(u"text/x-vCard", "2");
    EXPECT_EQ(outline(ReadMultimedia(written(cards.item())).item()),
              "0 application/vnd.wap.multipart.mixed Part_0.1 - -\n"
              "1 text/x-vCard Part_1.1 - -\n1 text/x-vCard Part_1.2 - -\n");
    MultimediaBuilder alternative = sendable(kMayAdd);
    alternative.container(u"application/vnd.wap.multipart.alternative");
    alternative.part(u"text/plain", "1", 1);
    EXPECT_EQ(outline(ReadMultimedia(written(alternative.item())).item()),
              "0 application/vnd.wap.multipart.alternative Part_0.1 - -\n1 text/plain Part_1.1 - -\n");
}

TEST(MultimediaPresentation, AMixedBodyWithPicturesBecomesARelatedOne) {
    MultimediaBuilder builder = sendable(kMayAdd);
    const std::uint32_t body = builder.container(u"application/vnd.wap.multipart.mixed");
    const std::uint32_t inner = builder.container(u"application/vnd.wap.multipart.alternative", body);
    builder.part(u"text/plain", "inside", inner);
    builder.part(u"image/gif", "1", body);
    EXPECT_EQ(
        outline(ReadMultimedia(written(builder.item())).item()),
        "0 application/vnd.wap.multipart.related;type=application/smil;start=<presentation> Part_0.1 - -\n"
        "1 application/smil presentation.smil presentation presentation.smil *\n"
        "1 application/vnd.wap.multipart.alternative Part_1.2 - -\n"
        "3 text/plain Part_2.1 - -\n"
        "1 image/gif Part_1.3 - Part_1.3\n");
}

TEST(MultimediaPresentation, ALonePartWithAPlaceGetsAContainerToHaveItIn) {
    MultimediaBuilder builder = sendable(VZ_MMS_NO_PRESENTATION);
    builder.part(u"image/jpeg", "1");
    builder.last().contentLocation = builder.own(u"a.jpg");
    EXPECT_EQ(outline(ReadMultimedia(written(builder.item())).item()),
              "0 application/vnd.wap.multipart.mixed Part_0.1 - -\n1 image/jpeg a.jpg - a.jpg\n");
}

TEST(MultimediaNames, ANameThatThePartWouldNotHaveIsWritten) {
    MultimediaBuilder builder = sendable(VZ_MMS_NO_PRESENTATION);
    builder.container(u"application/vnd.wap.multipart.mixed");
    builder.part(u"text/plain", "1", 1);
    builder.last().name = builder.own(u"Part_1.1");
    builder.part(u"text/plain", "2", 1);
    builder.last().name = builder.own(u"\u00E9.txt");
    builder.last().contentLocation = builder.own(u"e.txt");
    builder.part(u"text/plain", "3", 1);
    builder.parameter(u"name", u"old");
    builder.last().name = builder.own(u"\"new\"");
    builder.part(u"text/plain", "4", 1);
    builder.parameter(u"name", u"kept");
    builder.last().name = builder.own(u"");
    EXPECT_EQ(outline(ReadMultimedia(written(builder.item())).item()),
              "0 application/vnd.wap.multipart.mixed Part_0.1 - -\n"
              "1 text/plain Part_1.1 - -\n"
              "1 text/plain;name=\\u00E9.txt \\u00E9.txt - e.txt\n"
              "1 text/plain;name=\"new\" \"new\" - -\n"
              "1 text/plain;name=kept kept - -\n");
}

TEST(MultimediaNames, ATransferEncodingThatWouldSpoilTheDataIsLeftOut) {
    for (const char* const data : {"VGhl", "plain \xFF"}) {
        MultimediaBuilder builder = sendable(VZ_MMS_NO_PRESENTATION);
        builder.container(u"application/vnd.wap.multipart.mixed");
        builder.part(u"text/plain", data, 1);
        MultimediaValue value{};
        value.size = sizeof value;
        value.name = builder.own(u"Content-Transfer-Encoding");
        value.text = builder.own(u"base64");
        MultimediaHeader header = number_header(0, 0);
        header.kind = VZ_MMS_VALUE_NAMED_TEXT;
        header.value.record = builder.own(value);
        builder.part_header(header);
        EXPECT_EQ(ReadMultimedia(written(builder.item())).data(1), data);
    }
}

}  // namespace
}  // namespace vzapi::test
