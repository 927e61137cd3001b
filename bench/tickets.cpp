#include "bench/tickets.h"

#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/AnlXlate/ProvenStates.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "tests/listBuilder.h"

namespace {

ListBuilder stock(std::u16string_view key, std::u16string_view color, std::int32_t weight) {
    return list()
        .name(u"media-key", key)
        .collection(u"media-size", list().integer(u"x-dimension", 21000).integer(u"y-dimension", 29700))
        .keyword(u"media-color", color)
        .keyword(u"media-type", u"stationery")
        .integer(u"media-weight-metric", weight)
        .integer(u"media-hole-count", 0)
        .keyword(u"media-pre-printed", u"blank")
        .keyword(u"media-front-coating", u"none");
}

ListBuilder exceptions(int count) {
    ListBuilder set;
    for (int i = 0; i < count; ++i) {
        ListBuilder entry = list()
                                .set(u"input-documents", list().range(u"value", 1, 1))
                                .set(u"pages", list().range(u"value", 10 * i + 3, 10 * i + 5))
                                .keyword(u"sides", i % 2 == 0 ? u"one-sided" : u"two-sided-long-edge");
        if (i % 3 == 0) entry.collection(u"media-col", stock(u"Insert", i % 2 == 0 ? u"yellow" : u"blue", 120));
        if (i % 4 == 0) entry.integer(u"x-side1-image-shift", 100 * i).integer(u"y-side1-image-shift", -50);
        set.collection(u"value", entry);
    }
    return set;
}

ListBuilder inserts(int count) {
    ListBuilder set;
    for (int i = 0; i < count; ++i)
        set.collection(u"value", list()
                                     .integer(u"insert-after-page-number", 20 * i + 10)
                                     .integer(u"insert-count", 1 + i % 3)
                                     .collection(u"media-col", stock(u"Tab", u"green", 160)));
    return set;
}

AttrNodeList makeTicket(int exceptionCount, int insertCount, int chapterCount) {
    ListBuilder chapters;
    for (int i = 0; i < chapterCount; ++i)
        chapters.integer(u"value", 12 * i + 1);
    return list()
        .name(u"job-name", u"Service manual, edition 4")
        .name(u"requesting-user-name", u"Prepress")
        .name(u"job-recipient-name", u"Bindery, shift 2")
        .name(u"job-account-id", u"4711-0815")
        .text(u"job-accounting-data", u"Cost centre 90210")
        .text(u"job-sheet-message", u"Deliver before noon")
        .text(u"job-message-to-operator", u"Check the tabs against the proof")
        .integer(u"copies", 250)
        .keyword(u"sheet-collate", u"collated")
        .keyword(u"sides", u"two-sided-long-edge")
        .keyword(u"imposition-template", u"none")
        .set(u"page-ranges", list().range(u"value", 1, 120))
        .collection(u"job-save-disposition", list().keyword(u"save-disposition", u"none"))
        .set(u"finishings", list().enumeration(u"value", 20))
        .keyword(u"output-bin", u"stacker")
        .set(u"job-offset", list().keyword(u"value", u"offset-set"))
        .set(u"force-front-side", chapters)
        .collection(u"media-col", stock(u"Body", u"white", 80))
        .collection(
            u"cover-front",
            list().keyword(u"cover-type", u"print-front").collection(u"media-col", stock(u"Cover", u"ivory", 250)))
        .collection(
            u"cover-back",
            list().keyword(u"cover-type", u"print-none").collection(u"media-col", stock(u"Cover", u"ivory", 250)))
        .collection(u"separator-sheets", list().keyword(u"separator-sheets-type", u"none"))
        .integer(u"x-side1-image-shift", 300)
        .integer(u"y-side1-image-shift", 0)
        .integer(u"x-side2-image-shift", -300)
        .integer(u"y-side2-image-shift", 0)
        .keyword(u"color-effects-type", u"color")
        .keyword(u"black-overprint", u"black-overprint-on")
        .keyword(u"trapping", u"off")
        .integer(u"adjust-lightness", 5)
        .integer(u"adjust-contrast", -3)
        .integer(u"adjust-saturation", 0)
        .keyword(u"undefined-source-rgb-images", u"sRGB")
        .keyword(u"undefined-source-rgb-text", u"sRGB")
        .keyword(u"undefined-source-cmyk-images", u"swop")
        .keyword(u"rendering-intent-images", u"perceptual")
        .keyword(u"rendering-intent-text", u"pure-text")
        .keyword(u"rendering-intent-graphics", u"saturation")
        .keyword(u"color-emulation", u"euroscale")
        .resolution(u"printer-resolution", 600, 600, 3)
        .keyword(u"anti-aliasing", u"standard")
        .keyword(u"halftone-graphics", u"high-frequency-dot")
        .keyword(u"page-rotation", u"rotate-0")
        .keyword(u"job-hold-until", u"no-hold")
        .keyword(u"page-delivery", u"same-order-face-down")
        .keyword(u"toner-saver", u"none")
        .set(u"page-overrides", exceptions(exceptionCount))
        .set(u"insert-sheet", inserts(insertCount));
}

} // namespace

AttrNodeList typicalTicket() { return makeTicket(10, 4, 6); }

AttrNodeList largeTicket() { return makeTicket(250, 60, 100); }

ByteBuffer ticketText(const AttrNodeList& list) {
    ByteBuffer bytes;
    JtifTranslator().anlToBuffer(list, bytes);
    return bytes;
}

ByteBuffer compactText(const AttrNodeList& list) {
    ByteBuffer bytes;
    SmallJtifTranslator().anlToBuffer(list, bytes);
    return bytes;
}

ByteBuffer compressedText(const AttrNodeList& list) {
    CompressedBuffer block;
    block.store(compactText(list));
    return block.getStoredData();
}

std::vector<KolmaDevMode> manySettings() {
    std::vector<KolmaDevMode> all(2 * ProvenStates::maximumCount);
    AttrNodeList job = typicalTicket();
    std::int32_t copies = 0;
    for (KolmaDevMode& settings : all) {
        job.setNode(u"copies", IppInteger(++copies));
        settings.setAttrNodeList(job);
    }
    return all;
}
