#include "core/Paths.h"

#include "fuzz/Input.h"
#include "support/TrashReader.h"

namespace broomtide::fuzz {
namespace {

constexpr std::string_view unreserved =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";

bool isPlain(char byte) { return byte == '/' || unreserved.find(byte) != std::string_view::npos; }

void check(std::string_view path) {
  const std::string encoded = paths::percentEncoded(path);
  require(test::percentDecoded(encoded) == path, "decoding gives every byte back");
  require(encoded.find_first_not_of(std::string(unreserved) + "/%") == std::string::npos,
          "nothing but unreserved bytes, slashes and escapes comes out");
  const auto plain = static_cast<std::size_t>(std::ranges::count_if(path, isPlain));
  require(encoded.size() == plain + 3 * (path.size() - plain), "only what must be is encoded");
  for (std::size_t at = encoded.find('%'); at != std::string::npos;
       at = encoded.find('%', at + 1)) {
    require(encoded.find_first_of("abcdef", at) != at + 1 &&
                encoded.find_first_of("abcdef", at + 2) != at + 2,
            "escapes are written with capital letters");
  }
  require(paths::fileUrl(path) == "file://" + encoded, "a URL is its scheme and the encoded path");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::check(broomtide::fuzz::text(data, size));
  return 0;
}
