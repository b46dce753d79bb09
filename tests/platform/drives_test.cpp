#include "platform/posix/drives.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/volume_facts.hpp"
#include "support/temp_folder.hpp"

#include <sys/statvfs.h>

namespace varnholt::platform::posix {
namespace {

PathMap mapOf(std::string_view drives) { return PathMap(parseDriveVariable(drives)); }

std::string lettersOf(const std::vector<DriveMapping>& drives) {
  std::string all;
  for (const DriveMapping& drive : drives)
    all += drive.letter + ("=" + drive.folder) + ";";
  return all;
}

constexpr char backslashStandIn[] = "\xEF\x81\x9C";
constexpr char escapeMark[] = "\xEF\x80\x9B";

TEST(PathMapNames, EveryNameComesBack) {
  const PathMap map = mapOf("C=/home/me;Z=/");
  const std::string stand(backslashStandIn), mark(escapeMark);
  for (const std::string& name : {std::string("a b.txt"), std::string(".profile"), std::string("\\\\"), stand, mark,
                                  "x" + stand + "\\" + mark, mark + mark + stand, mark + "\\",
                                  std::string("\xFF\xFE not UTF-8"), std::string("\xEF\x81"), std::string("C:")}) {
    const std::string up = PathMap::nameToProgram(name);
    EXPECT_EQ(up.find('\\'), std::string::npos) << name;
    EXPECT_EQ(PathMap::nameToSystem(up), name);
    for (const std::string& path : {"/home/me/" + name + "/x", "/srv/" + name}) {
      const auto program = map.toProgram(path);
      ASSERT_TRUE(program) << path;
      EXPECT_EQ(*map.toSystem(*program), path);
    }
  }
}

TEST(PathMapPaths, BothWays) {
  const PathMap map = mapOf("C=/home/me;D=/media/me/stick/;E=/home/me/music;Z=/");
  for (const auto text : test::Rows{"C:\\|/home/me", "C:\\a\\b.txt|/home/me/a/b.txt", "D:\\x|/media/me/stick/x",
                                    "E:\\song|/home/me/music/song", "C:\\musical|/home/me/musical", "Z:\\|/",
                                    "Z:\\home\\meadow|/home/meadow"}) {
    const test::Row row(text);
    EXPECT_EQ(map.toSystem(row.first).valueOr("?"), row.second);
    EXPECT_EQ(map.toProgram(row.second).valueOr("?"), row.first);
  }
}

TEST(PathMapPaths, SpellingsOfOnePath) {
  const PathMap map = mapOf("C=/home/me;Z=/");
  for (const char* path : {"c:\\a", "C:\\a\\", "C:\\\\a\\\\"})
    EXPECT_EQ(map.toSystem(path).valueOr("?"), "/home/me/a") << path;
  EXPECT_EQ(map.toSystem("c:").valueOr("?"), "/home/me");
  EXPECT_EQ(map.toSystem("Z:\\a\\..\\b").valueOr("?"), "/a/../b") << "point parts are the kernel's";
}

TEST(PathMapPaths, Refused) {
  const PathMap map = mapOf("C=/home/me");
  using namespace std::literals;
  for (std::string_view path :
       {""sv, "a"sv, "\\a"sv, "\\\\server\\share"sv, "C:a"sv, "D:\\a"sv, "1:\\a"sv, "C:\\a/b"sv, "C:\\a\0b"sv}) {
    const auto system = map.toSystem(path);
    ASSERT_FALSE(system) << path;
    EXPECT_EQ(system.error().code, ErrorCode::InvalidPath);
  }
  EXPECT_FALSE(map.toProgram("/srv/outside"));
  EXPECT_FALSE(map.toProgram("home/me"));
}

constexpr char mountInfo[] = "22 1 254:0 / / rw - ext4 /dev/vda rw\n"
                             "30 22 8:17 / /media/me/My\\040Stick rw shared:1 - vfat /dev/sdb1 rw\n"
                             "not a line\n"
                             "31 22 8:18 / /mnt rw - ext4 /dev/sdb2 rw\n"
                             "32 22 8:18 / /mnt rw - ext4 /dev/sdb2 rw\n"
                             "33 22 0:44 / /run/media/me/cd ro - iso9660 /dev/sr0 ro\n"
                             "34 22 0:45 / /mnt/auto rw - autofs systemd-1 rw\n"
                             "35 22 0:46 / /mediastore rw - ext4 /dev/sdc rw\n";

TEST(DriveSources, MountedVolumesTakeLettersInOrder) {
  const test::ScratchFolder scratch;
  EXPECT_EQ(lettersOf(defaultDrives("/home/me", readMounts(scratch.write("mountinfo", mountInfo)))),
            "C=/home/me;D=/media/me/My Stick;E=/mnt;F=/run/media/me/cd;Z=/;");
}

TEST(DriveSources, Variable) {
  const auto drives = parseDriveVariable(" d=/data/ ; C=/home/me;bad;=x;Q=;9=/x;c=/second;E=relative");
  EXPECT_EQ(lettersOf(drives), "C=/home/me;D=/data;");
}

TEST(DriveSources, FileWithAllFacts) {
  const auto drives = parseDriveFile("# discs\n\nstray=1\n[e]\nfolder = /srv/disc \ntype=cdrom\nfilesystem=CDFS\n"
                                     "label=MY DISC\nshare=\\\\server\\discs\nserial=-559038737\ntotal=700\nfree=x\n"
                                     "[bad]\nfolder=/bad\n[F]\nlabel=no folder\n[G]\nfolder=/g\nnotready\n");
  ASSERT_EQ(lettersOf(drives), "E=/srv/disc;G=/g;");
  EXPECT_EQ(drives[0].type, DriveType::CdRom);
  EXPECT_EQ(drives[0].fileSystem, "CDFS");
  EXPECT_EQ(drives[0].label, "MY DISC");
  EXPECT_EQ(drives[0].share, "\\\\server\\discs");
  EXPECT_EQ(drives[0].serial, -559038737);
  EXPECT_EQ(drives[0].totalBytes, 700u);
  EXPECT_EQ(drives[0].freeBytes, std::nullopt) << "a line that makes no sense costs that line";
  EXPECT_FALSE(drives[0].notReady);
  EXPECT_TRUE(drives[1].notReady);
}

TEST(DriveSources, VariableGoesBeforeFileBeforeMounts) {
  const test::ScratchFolder scratch;
  DriveSources sources{"", scratch / "drives.conf", "/home/me", scratch.write("mountinfo", mountInfo)};
  EXPECT_EQ(PathMap(sources).toSystem("D:\\").valueOr("?"), "/media/me/My Stick");
  scratch.write("drives.conf", "[D]\nfolder=/from/file\n");
  EXPECT_EQ(PathMap(sources).toSystem("D:\\").valueOr("?"), "/from/file");
  sources.variable = "D=/from/variable";
  EXPECT_EQ(PathMap(sources).toSystem("D:\\").valueOr("?"), "/from/variable");
}

TEST(DriveSources, ALetterNeverComesToMeanAnotherVolume) {
  const test::ScratchFolder scratch;
  const std::string first = "30 22 8:17 / /mnt/a rw - vfat /dev/sdb1 rw\n";
  const std::string second = "31 22 8:18 / /mnt/b rw - vfat /dev/sdb2 rw\n";
  const std::string third = "32 22 8:19 / /mnt/c rw - vfat /dev/sdb3 rw\n";
  PathMap map(DriveSources{"", "", "/home/me", scratch.write("mountinfo", first + second)});
  const auto reads = [&](const std::string& mounts) {
    scratch.write("mountinfo", mounts);
    map.reload();
    return lettersOf(map.drives());
  };
  EXPECT_EQ(reads(second), "C=/home/me;E=/mnt/b;Z=/;");
  EXPECT_EQ(reads(third + second), "C=/home/me;E=/mnt/b;F=/mnt/c;Z=/;");
  EXPECT_EQ(reads(third + second + first), "C=/home/me;D=/mnt/a;E=/mnt/b;F=/mnt/c;Z=/;");
}

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
                             "total=700\nfree=0\n[E]\nfolder=" + temp.path() +
                             "\nnotready\nshare=away\n[F]\nfolder=/no/such/folder\n"));
  const PosixDrives drives(map);
  const auto disc = drives.info('D');
  ASSERT_TRUE(disc);
  EXPECT_EQ(disc->fileSystem + disc->label, "CDFSDISC");
  EXPECT_EQ(disc->type, DriveType::CdRom);
  EXPECT_EQ(disc->serial, -5);
  EXPECT_EQ(disc->totalBytes, 700u);
  EXPECT_EQ(disc->availableBytes, 0u);
  for (const char letter : {'E', 'F'})
    EXPECT_TRUE(!drives.info(letter)->ready && drives.info(letter)->share == (letter == 'E' ? "away" : "")) << letter;
  EXPECT_EQ(drives.info('F')->totalBytes, 0u);
}

TEST(VolumeFacts, NamesOfFileSystems) {
  for (const auto row : test::Rows{"iso9660|CDFS", "vfat|FAT32", "ntfs3|NTFS", "fuseblk|NTFS", "ext4|EXT4"})
    EXPECT_EQ(fileSystemName(test::Row(row).first), test::Row(row).second);
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
