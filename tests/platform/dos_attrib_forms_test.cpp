// Every form in which the extended attribute user.DOSATTRIB is found on disks.

#include "platform/attributes.hpp"

#include <gtest/gtest.h>

#include <random>

namespace varnholt::platform {
namespace {

std::string fromHex(std::string_view digits) {
  std::string bytes;
  std::string pair;
  for (const char c : digits) {
    if (c == ' ') continue;
    pair += c;
    if (pair.size() == 2) {
      bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
      pair.clear();
    }
  }
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
}

TEST(DosAttribForms, WordMarkedAsNotValidIsNothing) {
  std::string bytes = version5;
  bytes[8] = 0x10;  // the create time only
  EXPECT_EQ(decodeDosAttrib(bytes), std::nullopt);
}

TEST(DosAttribForms, WrittenFormIsReadBack) {
  EXPECT_EQ(encodeDosAttrib(0x22), "0x22");
  EXPECT_EQ(encodeDosAttrib(0), "0x0");
  for (Attributes word : {0u, 1u, 7u, 0x27u, 0x830u, 0xFFFFu})
    EXPECT_EQ(decodeDosAttrib(encodeDosAttrib(word)), word);
}

TEST(DosAttribForms, AnyBytesAreSafe) {
  std::mt19937 random(1);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = round % 3 == 0 ? version3 : round % 3 == 1 ? version4 : version5;
    bytes.resize(random() % (bytes.size() + 1));
    for (int change = 0; change < 3 && !bytes.empty(); ++change)
      bytes[random() % bytes.size()] = static_cast<char>(random());
    EXPECT_LE(decodeDosAttrib(bytes).value_or(0), 0xFFFFu);
  }
}

}  // namespace
}  // namespace varnholt::platform
