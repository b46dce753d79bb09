#include "core/rtf.hpp"
#include "support/mutations.hpp"
#include "support/scratch_folder.hpp"

namespace varnholt::core {
namespace {

using controls::RichText;
using controls::TextFormat;

/// "b:bold i:italic|next", sizes and colours as numbers behind the letters.
std::string shown(const RichText& text) {
  std::string out;
  for (std::size_t at = 0; at < text.paragraphs.size(); ++at) {
    if (at > 0) out += '|';
    for (const auto& run : text.paragraphs[at]) {
      const TextFormat& format = run.format;
      std::string look =
          std::string(format.bold ? "b" : "") + (format.italic ? "i" : "") + (format.underline ? "u" : "");
      if (format.size != TextFormat::DefaultSize) look += std::to_string(format.size);
      if (format.color != controls::NoColor) look += "#" + std::to_string(format.color);
      out += look.empty() ? run.text : "<" + look + ":" + run.text + ">";
    }
  }
  return out;
}

struct Row {
  std::string rtf, text;
  bool holdsMore = false, isWhole = true;
};

std::string inside(const std::string& body) { return "{\\rtf1\\ansi " + body + "}"; }
std::string repeated(const std::string& part, int times) {
  std::string all;
  for (int time = 0; time < times; ++time)
    all += part;
  return all;
}

TEST(Rtf, IsReadForWhatItIsWorth) {
  const std::string deep = repeated("{", 10000), ends = repeated("}", 10000);
  const Row rows[] = {{"", "", false, true},
                      {"plain\r\ntext", "plain|text", false, false},
                      {"{\\rtf1", "", false, false},
                      {inside("a{\\b b{\\i c}}d"), "a<b:b><bi:c>d"},
                      {inside("\\b a\\b0 b\\ul c\\ulnone d\\ul e\\plain f"), "<b:a>b<u:c>d<u:e>f"},
                      {inside("\\fs40 a\\fs-5 b\\fs999999999999 c\\fs d"), "<40:a><2:bc>d", true},
                      {inside("{\\colortbl;\\red255\\green0\\blue1;\\red999;}\\cf1 a\\cf2 b\\cf0 c\\cf9 d\\cf-1 e"),
                       "<#65791:a><#255:b>cde"},
                      {inside("one\\par two\\\nthree\\par\\par four\\par"), "one|two|three||four"},
                      {inside("a\\tab b\\~c\\_d\\line e\\emdash f"), "a\tb\u00A0c\u2011d\u2028e\u2014f"},
                      {inside("\\{\\}\\\\ \\'e4\\'80\\'81\\'\\'zz\\'4"), "{}\\ ä€zz", true},
                      {inside("raw\xE4\x80\x01\x7F"), "rawä€\x7F"},
                      {inside("\\u228?\\uc0\\u8364\\uc2\\u-10179 ab\\u-8704\\'41\\'42c"), "ä€😀c"},
                      {inside("\\uc1\\u-10179?x\\u56832?\\u65y"), "\uFFFDx\uFFFDA"},
                      {inside("\\uc3\\u65{b}c"), "A"
                                                 "bc"},
                      {inside("{\\fonttbl{\\f0\\fswiss Sans Serif;}}\\f0 a"), "a"},
                      {inside("{\\fonttbl{\\f0 Comic;}}a"), "a", true},
                      {inside("\\f1 a"), "a", true},
                      {inside("{\\*\\generator Somebody;}a"), "a"},
                      {inside("{\\*\\secret \\b text{more}}a"), "a", true},
                      {inside("{\\pict\\wmetafile8 0123}a{\\object{\\*\\objdata 00}}"), "a", true},
                      {inside("{\\field{\\*\\fldinst HYPERLINK \"file:///bin/sh\"}{\\fldrslt here}}"), "here", true},
                      {inside("\\strike a\\nosuchword5 b\\*c"), "abc", true},
                      {inside("a\\bin3 }}{b"), "ab", true},
                      {inside("a\\bin-7 b\\bin99999999999 c"), "abc", true},
                      {inside("a") + "\\bin99 {", "a"},
                      {"{\\rtf1 a\\bin99999 b", "a", true, false},
                      {inside("x\\trowd a\\cell b\\cell\\row"), "xa\tb\t", true},
                      {"{\\rtf1 a{b\\'", "ab", true, false},
                      {"{\\rtf1 a\\", "a", false, false},
                      {"{\\rtf1 a}}}{b", "a"},
                      {inside(deep + "\\b deep" + ends + "out"), "<b:deep>out"},
                      {"{\\rtf1 " + deep + "cut", "cut", false, false},
                      {inside(repeated("{", 200000) + "x" + repeated("}", 200000) + "y"), "xy", true}};
  for (const Row& row : rows) {
    const RtfText read = readRtf(row.rtf);
    const std::string what = row.rtf.substr(0, 80);
    EXPECT_EQ(shown(read.text), row.text) << what;
    EXPECT_EQ(read.holdsMore, row.holdsMore) << what;
    EXPECT_EQ(read.isWhole, row.isWhole) << what;
  }
}

RichText sample() {
  RichText text;
  text.append("plain \\{}\tä€😀", {});
  text.append("bold", {true, false, false, 24, controls::NoColor});
  text.endParagraph();
  text.endParagraph();
  text.append("\u2028\xFFred", {false, true, true, 56, 0x0000FF});
  text.append("black", {false, false, false, 24, 0});
  text.endParagraph();
  return text;
}

TEST(Rtf, WhatIsWrittenComesBack) {
  const RtfText read = readRtf(writeRtf(sample()));
  RichText expected = sample();
  expected.paragraphs[2][0].text = "\u2028ÿred";  // a byte that is no text is read by the code page
  expected.append({}, {});
  EXPECT_EQ(shown(read.text), shown(expected));
  EXPECT_TRUE(read.isWhole && !read.holdsMore);
  EXPECT_EQ(readRtf(writeRtf(RichText::of("a\r\n\nb\n"))).text.plain(), "a\n\nb\n");
}

TEST(Rtf, AnotherProgramReadsWhatIsWritten) {
  const test::ScratchFolder folder;
  folder.write("note.rtf", writeRtf(sample()));
  ASSERT_EQ(std::system(("unrtf --html '" + folder / "note.rtf" + "' >'" + folder / "html" + "' 2>&1").c_str()), 0);
  const std::string html = folder.read("html");
  EXPECT_LT(html.find("<b>"), html.find("bold")) << html;
  EXPECT_LT(html.find("#ff0000"), html.find("red")) << html;
}

TEST(Rtf, NoBytesMakeTheReaderFail) {
  const std::string start = "{\\rtf1", good = writeRtf(sample()).substr(start.size());
  test::forMutationsOf(good,
                       {"{", "}", "\\", "\\u", "\\uc", "\\bin", "\\'", "-", "99999999999", "{\\*", "\\fonttbl",
                        "\\colortbl", "\\par", ";", "\xFF", std::string(1, '\0'), "\\u-10179"},
                       [&](const std::string& bytes) {
                         const RichText text = readRtf(start + bytes).text;
                         // What was made of it is a text like any other.
                         ASSERT_EQ(readRtf(writeRtf(text)).text, text) << bytes;
                       });
}

}  // namespace
}  // namespace varnholt::core
