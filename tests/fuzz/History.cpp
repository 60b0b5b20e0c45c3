#include "cleanup/HistoryCodec.h"
#include "core/Utf8.h"
#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

using HistoryCodec::decode;
using HistoryCodec::encode;

void checkReading(std::string_view text) {
  const HistoryCodec::Decoded decoded = decode(text);
  require(!decoded.defect || decoded.entries.empty(), "a defective history has no entries");
  if (decoded.defect) return;
  const std::string written = encode(decoded.entries);
  const HistoryCodec::Decoded again = decode(written);
  require(!again.defect, "what was decoded can be encoded");
  require(again.entries == decoded.entries, "encoding keeps every entry");
  require(encode(again.entries) == written, "the written form is the only one");
}

// The bytes as the texts of an entry, wherever one may stand.
void checkWriting(std::string_view bytes) {
  const std::string shown = utf8::printable(bytes);
  CleanupHistoryEntry entry{.id = "0F8FAD5B-D9CB-469F-A165-70867728950E",
                            .date = Date(),
                            .rootPath = std::string(bytes),
                            .movedCount = static_cast<std::int64_t>(bytes.size()),
                            .movedBytes = -1,
                            .failures = {{.id = "7C9E6679-7425-40DE-944B-E07FC1F90AE7",
                                          .path = std::string(bytes),
                                          .message = bareSentence(std::string(bytes))}}};
  const HistoryCodec::Decoded decoded = decode(encode({entry}));
  entry.rootPath = entry.failures[0].path = shown;
  entry.failures[0].message = bareSentence(shown);
  require(!decoded.defect, "any bytes can be written");
  require(decoded.entries == std::vector{entry}, "what is written is read");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::checkReading(broomtide::fuzz::text(data, size));
  broomtide::fuzz::checkWriting(broomtide::fuzz::text(data, size));
  return 0;
}
