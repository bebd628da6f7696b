#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>

#include "folder.hpp"
#include "host.hpp"
#include "pictures/drawing.hpp"
#include "pictures/paper_folder.hpp"
#include "pictures/raster.hpp"
#include "pictures/svg.hpp"
#include "pictures/typeface.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

namespace fs = std::filesystem;
using prueba::FamilySettings;
using prueba::kEmpty;
using prueba::Shop;

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

std::vector<PaperLine> TicketPaper() {
  Shop shop;
  shop.Send({"]", "1",
             "\xF4"
             "KESTRA"});
  shop.OpenTicket();
  shop.TicketItem(
      "Pan & <vino> \"a\xF1"
      "ejo\"",
      "1000", "1000");
  shop.Send({"E", "T"});
  return shop.printer.TakePaper();
}

// Every element is closed in its turn and every special character is written as an entity. This is
// all of XML that the pictures use.
std::string WhatIsWrongWithXml(std::string_view xml) {
  std::vector<std::string> open;
  while (!xml.empty()) {
    const std::size_t tag = std::min(xml.find('<'), xml.size());
    for (std::size_t at = xml.find('&'); at < tag; at = xml.find('&', at + 1)) {
      const std::string_view entity = xml.substr(at, xml.find(';', at) - at + 1);
      const std::set<std::string_view> known{"&amp;", "&lt;", "&gt;", "&quot;"};
      if (!known.contains(entity)) return "entity " + std::string(entity);
    }
    if (xml.substr(0, tag).find('>') != xml.npos) return "a loose >";
    xml.remove_prefix(tag);
    if (xml.empty()) break;
    const std::string_view element = xml.substr(1, xml.find('>') - 1);
    if (Count(element, "\"") % 2 != 0 || element.find('<') != element.npos) return "a torn tag";
    const std::string name(element.substr(0, element.find_first_of(" />", 1)));
    if (name.front() == '/') {
      if (open.empty() || "/" + open.back() != name) return "closes " + name;
      open.pop_back();
    } else if (element.back() != '/') {
      open.push_back(name);
    }
    xml.remove_prefix(element.size() + 2);
  }
  return open.empty() ? "" : "left open: " + open.back();
}

TEST(Picture, SvgIsWellFormedWhateverIsPrinted) {
  EXPECT_EQ(WhatIsWrongWithXml("<a><b></a>"), "closes /a");  // the check itself can fail
  EXPECT_EQ(WhatIsWrongWithXml("<a>R&D</a>"), "entity &D</a>");
  std::vector<PaperLine> lines = TicketPaper();
  std::string everything;
  for (int byte = 1; byte < 256; ++byte) everything += static_cast<char>(byte);
  lines.push_back({everything, PaperLine::Style::kPlain});
  lines.push_back({everything, PaperLine::Style::kWide});
  const std::string svg = ToSvg(Draw(lines, 400, everything));
  EXPECT_EQ(WhatIsWrongWithXml(svg), "");
  std::string one_line = svg;
  std::erase(one_line, '\n');
  EXPECT_EQ(CleanUtf8(one_line), one_line);
}

TEST(Picture, SvgHoldsWhatWasPrinted) {
  const std::string svg = ToSvg(Draw(TicketPaper(), 40, "0001-tique"));
  for (const char* part :
       {"<title>0001-tique</title>", ">TIQUE</text>", "Pan &amp; &lt;vino&gt; &quot;añejo&quot;",
        ">$ 10,00</text>", " · IMPRESORA VIRTUAL", ">LOGO</text>"}) {
    EXPECT_NE(svg.find(part), std::string::npos) << part;
  }
  EXPECT_GE(Count(svg, ">SIN VALIDEZ FISCAL<"), 3U);  // two lines of the paper and a watermark
}

// The text of a drawing that is set this way, with its place.
std::vector<Lettering> Letterings(const Drawing& drawing, std::string_view text) {
  std::vector<Lettering> found;
  for (const auto& mark : drawing.marks) {
    const auto* lettering = std::get_if<Lettering>(&mark);
    if (lettering != nullptr && lettering->text == text) found.push_back(*lettering);
  }
  return found;
}

TEST(Picture, DoubleWidthIsTwiceAsWideAndCentred) {
  const Drawing drawing = Draw({{"KESTRA", PaperLine::Style::kWideCentred}}, 40, "");
  const auto found = Letterings(drawing, "KESTRA");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].stretch, 2);
  const double length = 6 * 2 * found[0].cell;
  EXPECT_DOUBLE_EQ(found[0].at.x + length / 2, drawing.width / 2);
}

TEST(Picture, DoubleWidthIsCutWhereThePaperEnds) {
  const std::string text(30, 'M');
  const Drawing drawing = Draw({{text, PaperLine::Style::kWide}}, 40, "");
  EXPECT_EQ(Letterings(drawing, text.substr(0, 20)).size(), 1U);
}

TEST(Picture, ColumnsStandWhereTheyStandAsText) {
  Paper paper(40);
  paper.Split("Pan", "1,00");
  const Drawing drawing = Draw(paper.Take(), 40, "");
  const auto left = Letterings(drawing, "Pan");
  const auto right = Letterings(drawing, "1,00");
  ASSERT_EQ(left.size() + right.size(), 2U);
  EXPECT_DOUBLE_EQ(right[0].at.x - left[0].at.x, 36 * left[0].cell);
  EXPECT_EQ(right[0].at.y, left[0].at.y);
}

TEST(Picture, EachCutBeginsASheetAndEachSheetIsMarked) {
  Paper paper(40);
  paper.Line("uno");
  paper.Cut();
  paper.Line("dos");
  paper.Cut();
  paper.Feed(2);
  const Drawing drawing = Draw(paper.Take(), 40, "");
  EXPECT_EQ(Letterings(drawing, "SIN VALIDEZ FISCAL · IMPRESORA VIRTUAL").size(), 2U);
  EXPECT_GE(Letterings(drawing, "SIN VALIDEZ FISCAL").size(), 2U);
}

TEST(Picture, AFormIsWiderThanARoll) {
  const std::vector<PaperLine> lines{{"=", PaperLine::Style::kRule}};
  const Drawing roll = Draw(lines, 40, "");
  const Drawing form = Draw(lines, 80, "");
  EXPECT_GT(form.width, 1.7 * roll.width);
  EXPECT_GT(form.marks.size(), roll.marks.size());  // sprocket holes
  EXPECT_EQ(Letterings(form, std::string(80, '=')).size(), 1U);
}

TEST(Picture, OnlyFiscalPaperCarriesTheLogo) {
  Shop shop;
  shop.Send({"H"});
  shop.Send({"J", "T"});
  EXPECT_TRUE(Letterings(Draw(shop.printer.TakePaper(), 40, ""), "LOGO").empty());
  shop.Send({"9", "Z", "P"});
  EXPECT_EQ(Letterings(Draw(shop.printer.TakePaper(), 40, ""), "LOGO").size(), 1U);
  shop.OpenInvoice();
  shop.Send({"d", kEmpty, kEmpty, "C"});
  EXPECT_TRUE(Letterings(Draw(shop.printer.TakePaper(), 40, ""), "LOGO").empty());
}

std::uint32_t BigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char c : bytes.substr(0, 4)) value = value << 8U | static_cast<std::uint8_t>(c);
  return value;
}

// Black on white, as the red of each pixel in rows.
std::vector<std::vector<int>> Inked(std::size_t width, std::size_t height, const Outline& outline) {
  Canvas canvas(width, height);
  Fill(canvas, outline, {0, 0, 0, ""});
  std::vector<std::vector<int>> rows(height);
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) rows[y].push_back(canvas.Row(y)[x * 3]);
  }
  return rows;
}

TEST(Raster, APixelGetsAsMuchInkAsLiesInside) {
  const struct {
    const char* words;
    Outline outline;
    std::vector<std::vector<int>> rows;
  } cases[] = {
      {"nothing", {}, {{255, 255, 255}, {255, 255, 255}}},
      {"a point", {{{1, 1}}}, {{255, 255, 255}, {255, 255, 255}}},
      {"one whole pixel", {{{1, 0}, {2, 0}, {2, 1}, {1, 1}}}, {{255, 0, 255}, {255, 255, 255}}},
      {"the other way round", {{{1, 0}, {1, 1}, {2, 1}, {2, 0}}}, {{255, 0, 255}, {255, 255, 255}}},
      {"a fifth of two, half of the two below",
       {{{0.5, 0.6}, {1.5, 0.6}, {1.5, 2}, {0.5, 2}}},
       {{204, 204, 255}, {127, 127, 255}}},
      {"a triangle over two pixels", {{{0, 0}, {2, 0}, {0, 1}}}, {{64, 191, 255}, {255, 255, 255}}},
      {"beyond every edge", {{{-9, -9}, {9, -9}, {9, 9}, {-9, 9}}}, {{0, 0, 0}, {0, 0, 0}}},
      {"twice the same is no darker",
       {{{0, 0}, {1, 0}, {1, 2}, {0, 2}}, {{0, 0}, {1, 0}, {1, 2}, {0, 2}}},
       {{0, 255, 255}, {0, 255, 255}}},
      {"with a hole",
       {{{0, 0}, {3, 0}, {3, 2}, {0, 2}}, {{1, 0}, {1, 1}, {2, 1}, {2, 0}}},
       {{0, 255, 0}, {0, 0, 0}}},
  };
  for (const auto& row : cases) EXPECT_EQ(Inked(3, 2, row.outline), row.rows) << row.words;
}

TEST(Raster, ATallShapeIsFilledToItsFoot) {
  const auto rows = Inked(2, 1'000, {{{0, 0.5}, {1, 0.5}, {1, 999.5}, {0, 999.5}}});
  EXPECT_EQ(rows.front().front(), 127);
  EXPECT_EQ(rows.back().front(), 127);
  for (std::size_t y = 1; y < 999; ++y) ASSERT_EQ(rows[y], (std::vector<int>{0, 255})) << y;
}

TEST(Typeface, StrongLettersAreThickerOnAllSides) {
  const char* const file = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";
  if (!fs::exists(file)) GTEST_SKIP() << "no DejaVu Sans Mono here";
  Typeface face;
  ASSERT_TRUE(face.Open(file));
  EXPECT_TRUE(face.Letter(U' ', false).empty());
  const auto cover = [&](char32_t letter, bool strong) {
    Outline outline = face.Letter(letter, strong);
    for (auto& line : outline) {
      for (Point& point : line) point = {point.x * 100 + 10, point.y * 100 + 110};
    }
    int ink = 0;
    for (const auto& row : Inked(90, 150, outline)) {
      for (const int pixel : row) ink += 255 - pixel;
    }
    return ink / 255;
  };
  for (const char32_t letter : U"AaEñóg8$%&") {
    if (letter == 0) continue;
    const int thin = cover(letter, false);
    const int thick = cover(letter, true);
    EXPECT_GT(thin, 300) << static_cast<unsigned>(letter);
    EXPECT_GT(thick, thin * 1.2) << static_cast<unsigned>(letter);
    EXPECT_LT(thick, thin * 2) << static_cast<unsigned>(letter);
  }
}

TEST(Picture, PngIsAPictureOfThatSize) {
  PngMaker maker("");
  if (!maker.Ready()) GTEST_SKIP() << maker.Complaint();
  const Drawing drawing = Draw(TicketPaper(), 40, "");
  const std::string png = maker.Make(drawing);
  ASSERT_GT(png.size(), 1000U);
  EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(png.substr(12, 4), "IHDR");
  EXPECT_EQ(BigEndian(png.substr(16)), static_cast<std::uint32_t>(drawing.width * 1.5));
  EXPECT_NEAR(BigEndian(png.substr(20)), drawing.height * 1.5, 1);
  EXPECT_EQ(png.substr(png.size() - 8, 4), "IEND");
  EXPECT_NE(png, maker.Make(Draw({{"otra", PaperLine::Style::kPlain}}, 40, "")));
}

TEST(Picture, AFontThatCannotBeUsedIsTold) {
  PngMaker missing("no-hay.ttf");
  EXPECT_FALSE(missing.Ready());
  EXPECT_EQ(missing.Make(Draw({}, 40, "")), "");
  EXPECT_NE(missing.Complaint().find("no se hacen PNG, solo SVG"), std::string::npos);
}

TEST(Picture, AFontOfWhichTheEndIsMissingIsNoFont) {
  const std::string whole = prueba::Contents("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
  if (whole.empty()) GTEST_SKIP() << "no DejaVu Sans Mono here";
  const prueba::Folder folder;
  for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{12}, std::size_t{100},
                                 whole.size() / 2, whole.size() - 300}) {
    prueba::Fill(folder / "f.ttf", whole.substr(0, size));
    EXPECT_FALSE(PngMaker(folder / "f.ttf").Ready()) << size;
  }
  prueba::Fill(folder / "f.ttf", std::string(5'000, 'x'));
  EXPECT_FALSE(PngMaker(folder / "f.ttf").Ready());
}

struct NameRow {
  Receipt receipt;
  std::string name;
};

TEST(PaperFolder, NamesByKindLetterAndNumber) {
  const std::vector<NameRow> rows{
      {{.kind = "TIQUE FACTURA", .letter = 'B', .number = 12}, "tique-factura-B-00000012"},
      {{.kind = "TIQUE NOTA DE CRÉDITO", .letter = 'A', .number = 3, .cancelled = true},
       "tique-nota-de-credito-A-00000003-cancelado"},
      {{.kind = "DOCUMENTO NO FISCAL"}, "documento-no-fiscal"},
      {{.kind = "CIERRE Z", .number = 1}, "cierre-z-00000001"},
      {{.kind = "../../etc/passwd"}, "etc-passwd"},
      {{.kind = "***"}, "documento"},
  };
  for (const NameRow& row : rows) EXPECT_EQ(DocumentName(row.receipt), row.name);
}

class PaperFolderTest : public testing::Test {
 protected:
  PaperFolder Open() {
    return PaperFolder(folder_.path(), 40, "",
                       [this](const std::string& words) { told_ += words; });
  }
  std::set<std::string> Files() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      names.insert(entry.path().filename());
    return names;
  }

  prueba::Folder folder_;
  std::string told_;
};

TEST_F(PaperFolderTest, EachDocumentLeavesItsFiles) {
  PaperFolder folder = Open();
  std::string text;
  for (const PaperLine& line : TicketPaper()) {
    folder.Printed(line);
    text += AsText(line, 40) + "\n";
  }
  folder.Closed({.kind = "TIQUE", .letter = 'B', .number = 1});
  folder.Printed({"", PaperLine::Style::kFeed});  // between documents: nobody's
  folder.Printed({"~", PaperLine::Style::kCut});
  folder.Printed({"a medias", PaperLine::Style::kPlain});
  folder.Finish();
  const std::set<std::string> files = Files();
  EXPECT_TRUE(files.contains("0001-tique-B-00000001.svg"));
  EXPECT_TRUE(files.contains("0002-sin-cerrar.svg"));
  EXPECT_EQ(prueba::Contents(folder_ / "0001-tique-B-00000001.txt"), text);
  EXPECT_EQ(prueba::Contents(folder_ / "0002-sin-cerrar.txt"), "a medias\n");
  EXPECT_EQ(files.contains("0001-tique-B-00000001.png"), PngMaker("").Ready());
}

TEST_F(PaperFolderTest, NothingIsWrittenOver) {
  for (int run = 0; run < 2; ++run) {
    PaperFolder folder = Open();
    folder.Printed({"hola", PaperLine::Style::kPlain});
    folder.Closed({.kind = "TIQUE", .number = 1});
    folder.Finish();
  }
  EXPECT_TRUE(Files().contains("0001-tique-00000001.txt"));
  EXPECT_TRUE(Files().contains("0002-tique-00000001.txt"));
}

TEST_F(PaperFolderTest, AFolderThatIsGoneIsToldOnce) {
  PaperFolder folder = Open();
  fs::remove_all(folder_.path());
  told_.clear();
  for (int i = 0; i < 3; ++i) {
    folder.Printed({"hola", PaperLine::Style::kPlain});
    folder.Closed({.kind = "TIQUE", .number = 1});
  }
  EXPECT_EQ(Count(told_, "no se pudo guardar el papel"), 1U) << told_;
}

TEST(Utf8, OnlyWhatShowsComesThrough) {
  EXPECT_EQ(CleanUtf8("año €"), "año €");
  EXPECT_EQ(CleanUtf8("a\tb"),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(DecodeUtf8("\xC0\x80").size(), 1U);        // longer than it need be
  EXPECT_EQ(DecodeUtf8("\xED\xA0\x80"), U"\uFFFD");    // half of a pair
  EXPECT_EQ(DecodeUtf8("\xE2\x82"), U"\uFFFD\uFFFD");  // ends too soon
  EXPECT_EQ(DecodeUtf8("\xE2\x82x"), U"\uFFFDx");
}

}  // namespace
}  // namespace impresora
