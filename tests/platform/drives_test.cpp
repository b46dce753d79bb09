#include "platform/posix/drives.hpp"
#include "platform/posix/volume_facts.hpp"
#include "support/temp_folder.hpp"

#include <sys/statvfs.h>

namespace varnholt::platform::posix {
namespace {

using test::codeOf;
using test::TempFolder;

TEST(Drives, FactsComeFromTheVolume) {
  TempFolder temp;
  const auto info = PosixDrives(temp.map).info('c');
  struct statvfs facts {};
  ASSERT_EQ(::statvfs(temp.system("").c_str(), &facts), 0);
  ASSERT_TRUE(info);
  EXPECT_EQ(info->letter, 'C');
  EXPECT_TRUE(info->ready);
  EXPECT_FALSE(info->fileSystem.empty());
  EXPECT_EQ(info->totalBytes, facts.f_blocks * facts.f_frsize);
  EXPECT_LE(info->availableBytes, info->freeBytes);
  EXPECT_EQ(PosixDrives(temp.map).info('E')->serial, info->serial) << "one volume, one serial";
  EXPECT_EQ(codeOf(PosixDrives(temp.map).info('Q')), ErrorCode::InvalidPath);
}

TEST(Drives, MapOverridesTheVolume) {
  TempFolder temp;
  PathMap map(parseDriveFile("[D]\nfolder=" + temp.path() + "\nfilesystem=CDFS\ntype=cdrom\nlabel=DISC\nserial=-5\n" +
                             "total=700\nfree=0\n[E]\nfolder=" + temp.path() + "\nnotready\n[F]\nfolder=/no/such/folder\n"));
  const PosixDrives drives(map);
  const auto disc = drives.info('D');
  ASSERT_TRUE(disc);
  EXPECT_EQ(disc->fileSystem + disc->label, "CDFSDISC");
  EXPECT_EQ(disc->type, DriveType::CdRom);
  EXPECT_EQ(disc->serial, -5);
  EXPECT_EQ(disc->totalBytes, 700u);
  EXPECT_EQ(disc->availableBytes, 0u);
  for (const char letter : {'E', 'F'})
    EXPECT_FALSE(drives.info(letter)->ready) << letter;
  EXPECT_EQ(drives.info('F')->totalBytes, 0u);
}

TEST(VolumeFacts, NamesOfFileSystems) {
  const std::pair<const char*, const char*> names[] = {
      {"iso9660", "CDFS"}, {"vfat", "FAT32"}, {"ntfs3", "NTFS"}, {"fuseblk", "NTFS"}, {"ext4", "EXT4"}};
  for (const auto& [kernel, shown] : names)
    EXPECT_EQ(fileSystemName(kernel), shown);
}

TEST(VolumeFacts, TypesAndShares) {
  const Mount share{1, 0, "/", "/mnt/p", "cifs", "//server/photos"};
  EXPECT_EQ(driveTypeOf(share), DriveType::Network);
  EXPECT_EQ(shareOf(share), "\\\\server\\photos");
  EXPECT_EQ(shareOf(Mount{1, 0, "/", "/mnt/n", "nfs4", "server:/export"}), "server:/export");
  EXPECT_EQ(shareOf(Mount{1, 0, "/", "/mnt/d", "ext4", "/dev/sdb1"}), "");
  EXPECT_EQ(driveTypeOf(Mount{1, 0, "/", "/mnt/d", "udf", "/dev/sr0"}), DriveType::CdRom);
  EXPECT_EQ(driveTypeOf(Mount{1, 0, "/", "/mnt/r", "tmpfs", "tmpfs"}), DriveType::RamDisk);
}

TEST(VolumeFacts, SerialFromIdentifier) {
  EXPECT_EQ(serialFromIdentifier("1A2B-3C4D"), 0x1A2B3C4D);
  EXPECT_EQ(serialFromIdentifier("DEAD-BEEF"), static_cast<std::int32_t>(0xDEADBEEF));
  EXPECT_EQ(serialFromIdentifier("0123456789ABCDEF"), static_cast<std::int32_t>(0x89ABCDEF));
  const auto digest = serialFromIdentifier("5b1f2f2e-1111-4222-8333-444455556666");
  EXPECT_NE(digest, 0);
  EXPECT_NE(digest, serialFromIdentifier("5b1f2f2e-1111-4222-8333-444455556667"));
}

}  // namespace
}  // namespace varnholt::platform::posix
