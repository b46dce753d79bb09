// Every form in which the extended attribute user.DOSATTRIB is found on disks.

#include "platform/attributes.hpp"
#include "support/testing.hpp"

namespace varnholt::platform {
namespace {

std::string fromHex(std::string digits) {
  std::erase(digits, ' ');
  std::string bytes;
  for (size_t at = 0; at < digits.size(); at += 2)
    bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
  return bytes;
}

// "0x20", NUL, one byte to even, version 3 twice, two bytes to four; flags, attributes, and the sizes and times.
const std::string version3 = fromHex("30783230 00 00 0300 0300 0000 11000000 22000000") + std::string(36, '\0');
const std::string version4 = fromHex("0000 0400 0400 0000 11000000 07000000") + std::string(16, '\1');
const std::string version5 = fromHex("00000500 05000000 11000000 20040000 999c19ae54aadc01");

TEST(DosAttribForms, Text) {
  EXPECT_EQ(decodeDosAttrib("0x22"), 0x22u);
  EXPECT_EQ(decodeDosAttrib(std::string_view("0x22\0", 5)), 0x22u);
  EXPECT_EQ(decodeDosAttrib("0X7"), 7u);
  EXPECT_EQ(decodeDosAttrib("0x0"), 0u);
  EXPECT_EQ(decodeDosAttrib("0x120021"), 0x21u) << "bits beyond the word are dropped";
}

TEST(DosAttribForms, Binary) {
  EXPECT_EQ(version3.size(), 56u);
  EXPECT_EQ(version4.size(), 32u);
  EXPECT_EQ(decodeDosAttrib(version3), 0x22u);
  EXPECT_EQ(decodeDosAttrib(version4), 7u);
  EXPECT_EQ(decodeDosAttrib(version5), 0x420u);
}

TEST(DosAttribForms, MalformedIsNothing) {
  for (const std::string& bytes :
       {std::string(), std::string("0x"), std::string("22"), std::string("0xzz"), std::string("0x22 "),
        std::string("0x123456789"), std::string(1, '\0'), std::string(24, '\0'), version5.substr(0, 23),
        version4.substr(0, 31), version3.substr(0, 55), fromHex("00000600 06000000 11000000 20000000") + version5,
        fromHex("00000500 04000000 11000000 20000000 0000000000000000")})
    EXPECT_EQ(decodeDosAttrib(bytes), std::nullopt);
  std::string notValid = version5;
  notValid[8] = 0x10;  // the create time only
  EXPECT_EQ(decodeDosAttrib(notValid), std::nullopt);
}

}  // namespace
}  // namespace varnholt::platform
