#include "storage/EventXml.h"

#include "base/Text.h"
#include "fakes/FakeLocale.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "fakes/TestData.h"
#include "unit/storage/EventReading.h"

namespace kaz {
namespace {

// Every field different from its default and from its neighbours.
clsEvent FullEvent() {
    MemoryFileSystem files;
    files.Put("C:\\e.xml", GoldenFile("events.xml"));
    RecordingErrors errors;
    const auto file = files.OpenForReading("C:\\e.xml");
    clsEvent event;
    EventFileReader(*file, FakeLocale::English(), errors).Next(event);
    return event;
}

std::vector<LocaleData> Locales() {
    return {FakeLocale::English(), FakeLocale::German(), FakeLocale::Polish(), FakeLocale::Hungarian()};
}

// The same file read in both ways and through buffers so small that every place is once their end.
EventReading ReadAlike(const std::string& file, const LocaleData& locale = {}) {
    const EventReading expected = EventReading::BySearch(file, locale);
    EXPECT_EQ(EventReading::Streamed(file, locale), expected);
    EXPECT_EQ(EventReading::Streamed(file, locale, 100), expected);
    return expected;
}

TEST(EventXml, WritesTheFileByteForByte) {
    const clsEvent full = FullEvent();
    EXPECT_EQ(full.Desc(), "50% off: <b>Café</b> & \"bar\"\r\n\t100_000 a-b/c\\d");
    EXPECT_EQ(full.SharedLayerName, "Fuß"
                                    "ball & Co");
    EXPECT_EQ(full.WavFile, "\\\\server\\share\\ding.wav");
    EXPECT_EQ(full.ShareNames, "Ann\r\nBob\r\n");
    EXPECT_TRUE(full.MailSent && full.PlayWav && full.ShareWithSpecific);
    // A pure time stands with the date of day zero; a time with a date keeps it; seconds are lost.
    clsEvent dated;
    dated.AlarmTime(DateValue(DateValue::FromCivil(2023, 3, 15).Day(), 8 * 3600 + 59));
    EXPECT_EQ(FileOf({full, clsEvent(), dated}), GoldenFile("events.xml"));
    EXPECT_EQ(FileOf({}), GoldenFile("events_none.xml"));
}

TEST(EventXml, ReadsWhatItWroteInEveryLocale) {
    const std::string file = GoldenFile("events.xml");
    for (const LocaleData& locale : Locales()) {
        const EventReading reading = ReadAlike(file, locale);
        EXPECT_THAT(reading.errors, IsEmpty());
        ASSERT_THAT(reading.events, SizeIs(3));
        EventReading expected;
        expected.Add(FullEvent());
        EXPECT_EQ(reading.events[0], expected.events[0]);
    }
}

// One change to a file at a time, and how many of its events' fields cannot be read after it.
TEST(EventXml, ReadsAnyOtherLayoutByTheTagsAlone) {
    const std::string good = FileOf({FullEvent(), FullEvent()});
    const EventReading before = ReadAlike(good);
    const auto changed = [&](std::string_view what, std::string_view with) {
        const std::string file = ReplaceAll(good, what, with);
        EXPECT_NE(file, good) << what;
        return ReadAlike(file);
    };
    const struct {
        const char* what;
        const char* with;
    } harmless[] = {
        {"\r\n", "\n"},
        {"\t", ""},
        {"<DayNumber>5</DayNumber>", "<dAYNUMBER>5</Daynumber>"},
        {"<EVENT>", "<event>\r\n<Color>red</Color>"},
        {"<IDCode>048213</IDCode>\r\n", ""},
        {"</ShareNames>", "</ShareNames><IDCode>999999</IDCode>"},
        {"<Layer>19</Layer>", "<Layer>1<Layer>9</Layer>"},
        {"<Period>", "<!-- a > b --><Period>"},
        {"<?xml", "<IDCodes><?xml"},
    };
    for (const auto& c : harmless) {
        SCOPED_TRACE(c.what);
        EventReading after = changed(c.what, c.with);
        if (std::string_view(c.what).starts_with("<IDCode>")) {
            const std::string code = "<IDCode></IDCode>";
            for (std::string& event : after.events)
                event.replace(event.find(code), code.size(), "<IDCode>048213</IDCode>");
        }
        EXPECT_EQ(after, before);
    }

    // A field that is missing, empty or malformed is one line in the log and keeps its default.
    for (const char* bad : {"", "<Layer></Layer>", "<Layer>19x</Layer>", "<Layer>32768</Layer>"}) {
        const EventReading after = changed("<Layer>19</Layer>", bad);
        const char* error = std::string(bad).find("32768") == std::string::npos ? "13" : "6";
        const std::string line = std::string(error) + " TransferXMLToObject clsDbXml";
        EXPECT_THAT(after.errors, ElementsAre(line, line)) << bad;
        EXPECT_EQ(ReplaceAll(after.events[0], "<Layer>0</Layer>", "<Layer>19</Layer>"), before.events[0])
            << bad;
    }
    EXPECT_THAT(changed("<DueDate>2006-03-01", "<DueDate>2006-02-30").errors, SizeIs(2));
    EXPECT_THAT(changed("14:30</AlarmTime>", "14:30:59</AlarmTime>").errors, IsEmpty());
    // Without its block end the second block is part of the first one's piece, whose fields come first.
    EXPECT_THAT(changed("</EVENT>", "</event>").events, ElementsAre(before.events[0]));
    EXPECT_THAT(changed("<EVENT>", "<EVENTS>").events, IsEmpty());
}

}  // namespace
}  // namespace kaz
