#include "files/sectionedtext.h"

#include "files/filesbench.h"
#include "files/textencoding.h"

namespace quorvane {

namespace {

std::vector<std::string> FieldsOf(const std::string& bytes) {
    SectionedText text(bytes);
    std::vector<std::string> fields;
    try {
        for (;;) fields.emplace_back(text.Field());
    } catch (const ReadError&) {
        return fields;
    }
}

} // namespace

struct FieldCase {
    std::string Text;
    std::vector<std::string> Fields;
};

class Fields : public testing::TestWithParam<FieldCase> {};

TEST_P(Fields, EndAtCommasAndLineEnds) { EXPECT_EQ(FieldsOf(GetParam().Text), GetParam().Fields); }

INSTANTIATE_TEST_SUITE_P(SectionedText, Fields,
                         testing::Values(FieldCase{"", {}}, FieldCase{"a", {"a"}}, FieldCase{"a\r\n", {"a"}},
                                         FieldCase{"a\nb", {"a", "b"}}, FieldCase{"a\rb", {"a", "b"}},
                                         FieldCase{"a\r\nb\r\n", {"a", "b"}},
                                         FieldCase{" a ,\tb\t, c d \r\n", {"a", "b", "c d"}},
                                         FieldCase{"\r\n\r\n", {"", ""}}, FieldCase{"\n\r", {"", ""}},
                                         FieldCase{",", {""}}, FieldCase{"1,", {"1"}},
                                         FieldCase{"1,\r\n2", {"1", "", "2"}},
                                         FieldCase{"1,,2", {"1", "", "2"}},
                                         FieldCase{"\"a,b\"", {"\"a", "b\""}}, FieldCase{"a\r\n\x1A", {"a"}},
                                         FieldCase{"\xEF\xBB\xBF"
                                                   "a,b",
                                                   {"a", "b"}}));

struct SectionCase {
    std::string Text;
    std::string Value; // the field behind [VALUES]; "-" when it is not found
};

class Sections : public testing::TestWithParam<SectionCase> {};

TEST_P(Sections, AreFoundFromTheStartInAnyCaseAfterTheHeader) {
    SectionedText text(GetParam().Text);
    std::string value = "-";
    try {
        text.FindSection("[VALUES]");
        value = text.Field();
    } catch (const ReadError&) {
        value = "-";
    }
    EXPECT_EQ(value, GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(
    SectionedText, Sections,
    testing::Values(SectionCase{"h\r\n[VALUES]\r\n1", "1"}, SectionCase{"h\r\n[values]\r\n1", "1"},
                    SectionCase{"h\r\n  [VaLuEs]\t\r\n1", "1"},
                    SectionCase{"h\r\n[A]\r\n2\r\n[Values]\r\n1", "1"}, SectionCase{"h,[VALUES],1", "1"},
                    SectionCase{"[VALUES]\r\n1\r\n", "-"}, // the header is no section
                    SectionCase{"[VALUES]\r\n[VALUES]\r\n2", "2"}, SectionCase{"h\r\n[VALUES]\r\n", "-"},
                    SectionCase{"h\r\n[VALUES] x\r\n1", "-"}, SectionCase{"h\r\n", "-"}, SectionCase{"", "-"},
                    SectionCase{"h\r\n[VALUE]\r\n1", "-"}));

TEST(SectionedTextFile, IsNotSearchedWhenItEndsWithItsHeader) {
    SectionedText text("only a header\r\n");
    EXPECT_NO_THROW(text.FindSection("[VALUES]"));
    EXPECT_THROW(text.Field(), ReadError);
}

TEST(SectionedTextFile, IsSearchedAnewForEverySection) {
    SectionedText text("h\r\n[A]\r\n1\r\n[B]\r\n2\r\n");
    text.FindSection("[B]");
    EXPECT_EQ(text.Field(), "2");
    text.FindSection("[A]");
    EXPECT_EQ(text.Field(), "1");
}

TEST(SectionedTextFile, OfTheSettingsMayBeginWithItsSection) {
    SectionedText text("[OPTIONS]\r\n5\r\n");
    text.FindSectionFromStart("[OPTIONS]");
    EXPECT_EQ(text.Field(), "5");
}

struct KeyCase {
    std::string Field;
    int Last3;
    int Last4;
};

class KeyLines : public testing::TestWithParam<KeyCase> {};

TEST_P(KeyLines, GiveTheNumberInTheirLastCharacters) {
    EXPECT_EQ(SectionedText(GetParam().Field).KeyNumber(), GetParam().Last3);
    EXPECT_EQ(SectionedText(GetParam().Field).KeyNumber(4), GetParam().Last4);
}

INSTANTIATE_TEST_SUITE_P(SectionedText, KeyLines,
                         testing::Values(KeyCase{"Xmax =  12", 12, 12}, KeyCase{"Xmax =  121", 121, 121},
                                         KeyCase{"Xmax = 5", 5, 5}, KeyCase{"Xmax=5", 5, 5},
                                         KeyCase{"Xmax =  1000", 0, 1000},
                                         KeyCase{"Speed =   65534", 534, 5534}, KeyCase{"Xmax =", 0, 0},
                                         KeyCase{"Xmax", 0, 0}, KeyCase{"7", 7, 7},
                                         KeyCase{"X = 1 2", 12, 12}, KeyCase{"Xmax = -1", -1, -1},
                                         KeyCase{"Xmax = 12  ", 12, 12}, KeyCase{"\r\n", 0, 0}));

TEST(KeyLine, BehindTheEndIsAnError) { EXPECT_THROW(SectionedText("").KeyNumber(), ReadError); }

template<class Number> std::string ValueOf(const std::string& field) {
    try {
        return std::to_string(SectionedText(field).Value<Number>());
    } catch (const ReadError&) {
        return "error";
    }
}

struct ValueCase {
    std::string Field;
    std::string As8;
    std::string As16;
    std::string As32;
};

class Values : public testing::TestWithParam<ValueCase> {};

TEST_P(Values, AreNumbersThatFitTheirStoreOrErrors) {
    EXPECT_EQ(ValueOf<std::uint8_t>(GetParam().Field), GetParam().As8);
    EXPECT_EQ(ValueOf<std::int16_t>(GetParam().Field), GetParam().As16);
    EXPECT_EQ(ValueOf<std::int32_t>(GetParam().Field), GetParam().As32);
}

INSTANTIATE_TEST_SUITE_P(
    SectionedText, Values,
    testing::Values(ValueCase{" 12", "12", "12", "12"}, ValueCase{"+7", "7", "7", "7"},
                    ValueCase{"-1", "error", "-1", "-1"}, ValueCase{"255", "255", "255", "255"},
                    ValueCase{"256", "error", "256", "256"}, ValueCase{"-32768", "error", "-32768", "-32768"},
                    ValueCase{"32768", "error", "error", "32768"},
                    ValueCase{"2147483648", "error", "error", "error"},
                    ValueCase{"99999999999999999999999", "error", "error", "error"},
                    ValueCase{"0.5", "0", "0", "0"}, ValueCase{"1.5", "2", "2", "2"},
                    ValueCase{"2.5", "2", "2", "2"}, ValueCase{"255.4", "255", "255", "255"},
                    ValueCase{"255.5", "error", "256", "256"}, ValueCase{"", "error", "error", "error"},
                    ValueCase{"x", "error", "error", "error"}, ValueCase{"1x", "error", "error", "error"},
                    ValueCase{"1 2", "error", "error", "error"}, ValueCase{"nan", "error", "error", "error"},
                    ValueCase{"inf", "error", "error", "error"}, ValueCase{"1e2", "error", "error", "error"},
                    ValueCase{"0x10", "error", "error", "error"}, ValueCase{"+-1", "error", "error", "error"},
                    ValueCase{"[VALUES]", "error", "error", "error"}));

struct EncodingCase {
    std::string Bytes;
    std::string Text;
};

class Encodings : public testing::TestWithParam<EncodingCase> {};

TEST_P(Encodings, ShowFromTheBytesAlone) {
    EXPECT_EQ(SectionedText(GetParam().Bytes).Text(), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    SectionedText, Encodings,
    testing::Values(EncodingCase{"B\xFChne", "Bühne"}, EncodingCase{"Bühne", "Bühne"},
                    EncodingCase{"\x80 \x9F \xFF", "€ Ÿ ÿ"},
                    EncodingCase{"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"},
                    EncodingCase{"ü,\xFC", "Ã¼"}, // one stray byte makes it Windows-1252
                    EncodingCase{"\xEF\xBB\xBFŁ", "Ł"}, EncodingCase{"😀", "😀"},
                    EncodingCase{"\xC0\xAF", "À¯"}, EncodingCase{"\xED\xA0\x80", "í\u00A0€"},
                    EncodingCase{"\xE4\xB8", "ä¸"}));

TEST(TextEncoding, EveryCharacterOfWindows1252ComesBackFromAFile) {
    std::string all;
    for (int byte = 1; byte <= 255; ++byte) all += static_cast<char>(byte);
    const std::string text = FromWindows1252(all);
    EXPECT_EQ(EncodedForFile(text), all);
    EXPECT_FALSE(LooksLikeUtf8(all));
}

TEST(TextEncoding, TextThatDoesNotFitIsUtf8) {
    for (const std::string text : {"Łódź", "ü 漢字", "😀"}) EXPECT_EQ(EncodedForFile(text), text);
}

TEST(TextEncoding, FileReadsBackAsTheTextItWasMadeFrom) {
    for (const std::string text : {"ASCII", "Bühne", "Ã¼", "Ã¤ und Ł", "â‚¬", "é€"})
        EXPECT_EQ(SectionedText(EncodedForFile(text)).Text(), text) << text;
}

using SectionedTextOnDisk = FilesBench;

TEST_F(SectionedTextOnDisk, IsRefusedAboveItsLimitWithoutReadingIt) {
    Write("gross.CFG", "h\r\n");
    std::filesystem::resize_file(ProgramFolder / "gross.CFG", LargestTextFile);
    EXPECT_NO_THROW(ReadSectionedText(ProgramFolder / "gross.CFG"));
    std::filesystem::resize_file(ProgramFolder / "gross.CFG", LargestTextFile + 1);
    EXPECT_THROW(ReadSectionedText(ProgramFolder / "gross.CFG"), ReadError);
}

TEST_F(SectionedTextOnDisk, ThatIsAFolderOrMissingIsAnError) {
    std::filesystem::create_directories(ProgramFolder / "ordner");
    EXPECT_THROW(ReadSectionedText(ProgramFolder / "ordner"), ReadError);
    EXPECT_THROW(ReadSectionedText(ProgramFolder / "fehlt"), ReadError);
}

} // namespace quorvane
