// Bytes that a fuzzer changes never come through an archive's check sums: the archive is made
// around one of its parts, which the first byte chooses.
#include <zip.h>

#include <array>

#include "fuzz/Fuzzing.h"

namespace velmora {
namespace {

struct Part {
  const char* name;
  std::string_view xml;
};

constexpr std::array<Part, 6> kWorkbook = {{
    {"xl/worksheets/sheet1.xml",
     R"(<worksheet><sheetData><row r="1"><c t="s"><v>0</v></c><c t="s"><v>1</v></c></row>)"
     R"(<row r="2"><c s="1"><v>1</v></c><c><v>2.5</v></c></row></sheetData></worksheet>)"},
    {"xl/sharedStrings.xml", "<sst><si><t>t</t></si><si><r><t>Cs</t></r></si></sst>"},
    {"xl/styles.xml", R"(<styleSheet><numFmts><numFmt numFmtId="164" formatCode="yyyy"/></numFmts>)"
                      R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="164"/></cellXfs></styleSheet>)"},
    {"xl/workbook.xml", R"(<workbook><sheets><sheet name="One" r:id="r1"/></sheets></workbook>)"},
    {"xl/_rels/workbook.xml.rels",
     R"(<Relationships><Relationship Id="r1" Type="x/worksheet" Target="worksheets/sheet1.xml"/>)"
     R"(<Relationship Id="r2" Type="x/sharedStrings" Target="sharedStrings.xml"/>)"
     R"(<Relationship Id="r3" Type="x/styles" Target="styles.xml"/></Relationships>)"},
    {"_rels/.rels",
     R"(<Relationships><Relationship Id="r1" Type="x/officeDocument" Target="xl/workbook.xml"/>)"
     R"(</Relationships>)"},
}};

/// The bytes of an archive that `fill` puts parts into.
class NewArchive {
 public:
  NewArchive() : source_(zip_source_buffer_create(nullptr, 0, 0, nullptr)) {
    zip_source_keep(source_);
    zip_ = zip_open_from_source(source_, ZIP_TRUNCATE, nullptr);
  }
  ~NewArchive() { zip_source_free(source_); }
  NewArchive(const NewArchive&) = delete;
  NewArchive& operator=(const NewArchive&) = delete;

  void Add(const char* name, std::string_view bytes) {
    zip_source_t* const part = zip_source_buffer(zip_, bytes.data(), bytes.size(), 0);
    const zip_int64_t index = zip_file_add(zip_, name, part, 0);
    Require(index >= 0);
    zip_set_file_compression(zip_, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
  }

  std::string Bytes() {
    Require(zip_close(zip_) == 0 && zip_source_open(source_) == 0);
    std::string bytes(1 << 20, '\0');
    const zip_int64_t got = zip_source_read(source_, bytes.data(), bytes.size());
    Require(got > 0);
    zip_source_close(source_);
    bytes.resize(static_cast<std::size_t>(got));
    return bytes;
  }

 private:
  zip_source_t* source_;
  zip_t* zip_;
};

}  // namespace

void Feed(std::string_view bytes) {
  if (bytes.empty()) return;
  const std::size_t fuzzed = static_cast<unsigned char>(bytes[0]) % kWorkbook.size();
  NewArchive archive;
  for (std::size_t i = 0; i < kWorkbook.size(); ++i)
    archive.Add(kWorkbook[i].name, i == fuzzed ? bytes.substr(1) : kWorkbook[i].xml);
  RequireWhole(ReadTable(archive.Bytes(), {.limit = 1 << 20}));
  RequireWhole(ReadTable(bytes.substr(1), {.limit = 1 << 20}));
}

}  // namespace velmora
