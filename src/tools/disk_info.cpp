#include "tools/disk_info.hpp"

#include "controls/dress.hpp"
#include "core/format.hpp"

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace varnholt::tools {
namespace {

/// A drive that is silent for so long is not ready.
constexpr std::chrono::seconds Patience{5};

// Red and green; the lowest byte of a colour is its red.
constexpr controls::Color Used = 0x3030C8, Available = 0x489638;

std::vector<controls::Chart::Value> usedAndFree(const char* restName, std::uint64_t used, std::uint64_t rest) {
  return {{"Used", static_cast<double>(used), Used}, {restName, static_cast<double>(rest), Available}};
}

/// What the drives have answered so far. The calls that ask own it, too: one may come back when all is over.
struct Answers {
  std::mutex mutex;
  std::condition_variable another;
  std::map<char, platform::Result<platform::DriveInfo>> drives;
};

}  // namespace

tools::Form17::Form17(panels::Desk& desk) : Form(desk.program.loop, "Form17"), desk_(desk) {
  Caption = "Disk Info";
  constexpr const char* MemoryTip = "Your present memory information. Ram condition my computer only.";
  const std::pair<controls::Label*, const char*> labels[] = {{&Label1, "Drive"},
                                                             {&Label2, "File system and serial number"},
                                                             {&Label3, "Total space"},
                                                             {&Label4, "Free space"},
                                                             {&Label5, "Used space"},
                                                             {&Label6, "Total memory"},
                                                             {&Label7, "Available memory"},
                                                             {&Label8, "Used memory"},
                                                             {&Label9, "Memory load"}};
  for (const auto& [label, name] : labels)
    label->AccessibleName = name;
  for (controls::Label* label : {&Label6, &Label7, &Label8, &Label9})
    label->ToolTipText = MemoryTip;
  for (controls::Chart* chart : {&MSChart1, &MSChart2})
    chart->ToolTipText = "Red => Used, Green => Available.";
  MSChart1.AccessibleName = "Space of the drive";
  MSChart2.AccessibleName = "Memory";
  dress(Command1, "&Disk Ready Test", "Drive Ready Test With Info.");
  dress(Command3, "&Cancel", "Cancel Operation");
  cancelButton = "Command3";
  Activate = [this] { Form_Activate(); };
  Unload = [this] { shown_ = false; };
  Command1.Click = [this] { Command1_Click(); };
  Command3.Click = [this] { UnloadForm(); };
  Click = [this] { UnloadForm(); };
}

void tools::Form17::DiskInfo_Click() {
  ShowModal();
  desk_.listing.FocusView();
}

void tools::Form17::DrivetestAll_Click() {
  tests_ = true;
  DiskInfo_Click();
}

void tools::Form17::Form_Activate() {
  if (std::exchange(shown_, true)) return;
  const panels::Panel* panel = desk_.form.activePanel();
  drive_ = panel ? panel->driveRoot().front() : 'C';
  for (controls::Label* label : {&Label2, &Label3, &Label4, &Label5})
    label->Caption = "";
  Label1.Caption = std::string(1, drive_) + ":\\";
  MSChart1.Values = std::vector<controls::Chart::Value>();
  auto info = std::make_shared<platform::Result<platform::DriveInfo>>(platform::Error{});
  desk_.program.loop.runBeside(
      [info, letter = drive_, &drives = desk_.program.platform.drives] { *info = drives.info(letter); },
      [this, info, letter = drive_] {
        // What a drive without a medium would tell are zeros: its labels stay empty.
        if (shown_ && letter == drive_ && *info && (*info)->ready) showDrive(**info);
      });
  showMemory();
  if (std::exchange(tests_, false)) desk_.program.loop.later([this] { Command1_Click(); });
}

void tools::Form17::showDrive(const platform::DriveInfo& drive) {
  const std::uint64_t used = drive.totalBytes - std::min(drive.totalBytes, drive.freeBytes);
  Label2.Caption = drive.fileSystem + "  |  SN:  " + std::to_string(drive.serial);
  Label3.Caption = bytes("###,###", drive.totalBytes);
  Label4.Caption = bytes("###,###", drive.freeBytes);
  Label5.Caption = bytes("###,###", used);
  MSChart1.Values = usedAndFree("Free", used, drive.freeBytes);
}

void tools::Form17::showMemory() {
  const auto memory = desk_.program.platform.system.memory();
  if (memory.totalPhysical == 0) {
    for (controls::Label* label : {&Label6, &Label7, &Label8, &Label9})
      label->Caption = "NA";
    return;
  }
  const std::uint64_t used = memory.totalPhysical - memory.availablePhysical;
  Label6.Caption = bytes("0,000", memory.totalPhysical);
  Label7.Caption = bytes("0,000", memory.availablePhysical);
  Label8.Caption = bytes("0,000", used);
  Label9.Caption = std::to_string(memory.loadPercent) + " %";
  MSChart2.Values = usedAndFree("Available", used, memory.availablePhysical);
}

std::string tools::Form17::bytes(const char* picture, std::uint64_t number) const {
  return core::format(picture, number, desk_.program.platform.regional) + " Bytes";
}

std::string tools::Form17::FreeSpaceText(std::uint64_t bytes) const {
  const auto& regional = desk_.program.platform.regional;
  if (bytes == 0) return "[ NA ]";
  const double free = static_cast<double>(bytes);
  if (free / 1'000'000 >= 1) return "[ " + core::format("#,#", free / 1'000'000, regional) + " MB Free ]";
  return "[ " + core::format("#,#", free / 1'000, regional) + " KB Free ]";
}

void tools::Form17::Command1_Click() {
  auto& program = desk_.program;
  desk_.pointer() = controls::pointer::Hourglass;
  const std::vector<char> letters = program.platform.drives.letters();
  const auto answers = std::make_shared<Answers>();
  for (const char letter : letters)
    program.loop.runBeside(
        [answers, letter, &drives = program.platform.drives] {
          auto info = drives.info(letter);
          const std::lock_guard lock(answers->mutex);
          answers->drives.emplace(letter, std::move(info));
          answers->another.notify_one();
        },
        [] {});
  program.loop.runBlocking([&] {
    std::unique_lock lock(answers->mutex);
    answers->another.wait_for(lock, Patience, [&] { return answers->drives.size() == letters.size(); });
  });
  std::string report;
  {
    const std::lock_guard lock(answers->mutex);
    for (const char letter : letters) {
      const auto answer = answers->drives.find(letter);
      const bool answered = answer != answers->drives.end() && answer->second;
      const std::string share = answered && !answer->second->share.empty() ? "[ " + answer->second->share + " ]" : "";
      const std::string head = std::string("\r") + letter + ":\\";
      report += answered && answer->second->ready ? head + "  ...  Drive Is Ready !          " + share + "   " +
                                                        FreeSpaceText(answer->second->freeBytes)
                                                  : head + "  ...  Drive Not Ready !         " + share;
    }
  }
  desk_.pointer() = controls::pointer::Default;
  program.loop.show({"Drive Test Result", report, controls::MessageIcon::Information, controls::MessageButtons::Ok});
}

}  // namespace varnholt::tools
