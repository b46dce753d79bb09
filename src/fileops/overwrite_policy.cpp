#include "fileops/overwrite_policy.hpp"
#include "fileops/item_in_hand.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "core/wildcard.hpp"
#include "platform/paths.hpp"

#include <utility>

namespace varnholt::fileops {
namespace {

namespace paths = platform::paths;
using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::int64_t AcceptedSeconds = 2;
constexpr std::size_t LongTarget = 40;

}  // namespace

bool NotNewer(const platform::Date& first, const platform::Date& second) {
  return second.seconds - first.seconds <= AcceptedSeconds;
}

struct OverwritePolicy::Facts {
  std::uint64_t size = 0;
  platform::Date modified;
  std::string version;
};

OverwritePolicy::OverwritePolicy(panels::Desk& desk, Form7& form7, Form10& form10)
    : desk_(desk), form7_(form7), form10_(form10) {
  form7_.answeredForAll = [this] { OverwritePrompt = false; };
}

// --- Questions -----------------------------------------------------------------------------------------------------

// A file that cannot be read shows what was read so far.
OverwritePolicy::Facts OverwritePolicy::factsOf(const std::string& path) const {
  Facts facts;
  if (const auto info = desk_.files().info(path)) {
    facts.size = info->size;
    facts.modified = info->modified;
  }
  facts.version = desk_.files().fileVersion(path).valueOr("");
  if (facts.version.empty()) facts.version = "NA";
  return facts;
}

std::string OverwritePolicy::factsLine(const Facts& facts) const {
  const auto& platform = desk_.program.platform;
  return "Date L.m: " + core::propertiesDate(desk_.program.init.DateTimeFormat, platform.clock.local(facts.modified)) +
         "   Size: " + core::format("###,###", facts.size, platform.regional) + "   Version: " + facts.version;
}

void OverwritePolicy::ask() {
  const int before = desk_.pointer();
  desk_.pointer() = Default;
  form7_.Label5.Visible = true;
  form7_.Command4.Enabled = renameTarget && copyDialogVisible && copyDialogVisible();
  form7_.ShowModal();
  desk_.pointer() = before;
}

void OverwritePolicy::copywarning(const std::string& name) {
  const std::string target = targetOf(desk_, name);
  const Facts from = factsOf(desk_.form.SourcePath), to = factsOf(target);
  const bool equal = NotNewer(from.modified, to.modified) && NotNewer(to.modified, from.modified) &&
                     from.size == to.size && from.version == to.version;
  form7_.Caption = equal ? "Overwrite Warning !, - Files Equal !" : "Overwrite Warning !, - Files Not Equal !";
  form7_.Label1.Caption = "Source FileName:     " + name;
  form7_.Label2.Caption = factsLine(from);
  form7_.Label3.Caption = "Target FileName:     " + core::shortened(target, LongTarget + 1, LongTarget);
  form7_.Label4.Caption = factsLine(to);
  form7_.Label6.Visible = false;
  ask();
}

Overwrite OverwritePolicy::RenameWarning(const std::string& from, const std::string& to) {
  const auto& platform = desk_.program.platform;
  const bool caseOnly = desk_.files().sameEntry(from, to);
  const auto line = [&](const std::string& path) {
    const Facts facts = factsOf(path);
    return "Date:  " + core::propertiesDate(desk_.program.init.DateTimeFormat, platform.clock.local(facts.modified)) +
           (caseOnly ? "       size:  " : "       Size:  ") + core::format("#,#", facts.size, platform.regional) +
           " Bytes";
  };
  form7_.Caption = "Overwrite Warning !";
  form7_.Label1.Caption =
      (caseOnly ? "With Filename:     " : "OverWrite File:     ") + std::string(paths::fileName(from));
  form7_.Label2.Caption = line(from);
  form7_.Label3.Caption = (caseOnly ? "As New File:        " : "With File:     ") + std::string(paths::fileName(to));
  form7_.Label4.Caption = line(to);
  const std::string oldName(paths::fileName(from)), newName(paths::fileName(to));
  form7_.Label6.Caption = caseOnly
                              ? "Both names lead to one file, so that nothing is lost."
                              : "What is in \"" + newName + "\" now will be lost. \"" + oldName + "\" takes its name.";
  form7_.Label6.Visible = true;
  ask();
  return form7_.OverwriteAnswer;
}

bool OverwritePolicy::ConfirmVersion(const std::string& source, const std::string& target) {
  const std::string from = desk_.files().fileVersion(source).valueOr("");
  const std::string to = desk_.files().fileVersion(target).valueOr("");
  if (core::wildcardMatch(to, from)) return true;
  const auto line = [](const char* label, const std::string& path, const std::string& version) {
    return label + std::string(paths::fileName(path)) + "  " + version + "\r";
  };
  desk_.pointer() = Default;
  const bool agreed = desk_.program.dialogs.AskRetry("File Versions Differ !\r" + line("Source File:  ", source, from) +
                                                     line("Target File:  ", target, to) + "Still Want To OverWrite ?");
  desk_.pointer() = Hourglass;
  return agreed;
}

// --- Decisions -----------------------------------------------------------------------------------------------------

Outcome OverwritePolicy::decide(const std::string& name) {
  if (OverwritePrompt) copywarning(name);
  const std::string target = targetOf(desk_, name);
  switch (form7_.OverwriteAnswer) {
  case Overwrite::ThisOne:
    return decideThisOne(name, target);
  case Overwrite::All:
    return ConfirmVersion(desk_.form.SourcePath, target) ? Outcome::CopyOverProtected : Outcome::CopiedAlready;
  case Overwrite::AllOlder: {
    const Facts from = factsOf(desk_.form.SourcePath), to = factsOf(target);
    if (NotNewer(to.modified, from.modified)) return Outcome::CopiedAlready;
    return ConfirmVersion(desk_.form.SourcePath, target) ? Outcome::CopyOverProtected : Outcome::CopiedAlready;
  }
  case Overwrite::RenameTarget:
    return askNewName(name) ? Outcome::Copy : Outcome::Skipped;
  case Overwrite::Skip:
    return Outcome::Skipped;
  case Overwrite::Cancel:
  case Overwrite::None:
    break;
  }
  return Outcome::Ends;
}

// The rename has items in hand of its own.
bool OverwritePolicy::askNewName(const std::string& name) {
  auto& form = desk_.form;
  const std::string item = form.CurrentItem, source = form.SourcePath, target = form.TargetPath;
  const bool renamed = !renameTarget || renameTarget(target, name);
  form.CurrentItem = item;
  form.SourcePath = source;
  form.TargetPath = target;
  return renamed;
}

Outcome OverwritePolicy::decideThisOne(const std::string& name, const std::string& target) {
  const platform::Attributes attributes = desk_.files().attributes(target).valueOr(0);
  if (attributes == platform::attribute::Archive) return Outcome::Copy;
  if (form10_.AttrAnswer == AttributeAnswer::All) return Outcome::CopyOverProtected;
  desk_.pointer() = Default;
  form10_.atribtrap(attributes, name);
  desk_.pointer() = Hourglass;
  if (form10_.AttrAnswer == AttributeAnswer::None) return Outcome::Copy;
  const bool agreed = form10_.AttrAnswer == AttributeAnswer::ThisItem || form10_.AttrAnswer == AttributeAnswer::All;
  return agreed ? Outcome::CopyOverProtected : Outcome::Skipped;
}

}  // namespace varnholt::fileops
