#include "compare/compare.hpp"

namespace varnholt::compare {

void Compare::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "LeftToRight_Click",
       .toolTip = "The left panel goes to the folder of the right one",
       .heading = "View",
       .menuText = "Set Left View = Right View",
       .newGroup = true,
       .run = [this] { panelPair.LeftToRight_Click(); }},
      {.handler = "RigthToLeft_Click",
       .toolTip = "The right panel goes to the folder of the left one",
       .heading = "View",
       .menuText = "Set Right View = Left View",
       .run = [this] { panelPair.RigthToLeft_Click(); }},
      {.handler = "SourceToTarget_Click",
       .toolTip = "The other panel goes to the folder of the active one",
       .heading = "View",
       .menuText = "Set Target View = Source View",
       .run = [this] { panelPair.SourceToTarget_Click(); }},
      {.handler = "TargetFolder_Click",
       .toolTip = "The other panel goes to the folder of the same name on its own drive",
       .heading = "View",
       .menuText = "Set Target Drive Folder = Source Drive Folder",
       .run = [this] { panelPair.TargetFolder_Click(); }},
      {.handler = "Com_Sync_Click",
       .toolTip = "Compare the folders of both panels, and make them alike",
       .icon = "compare",
       .heading = "Tools/Compare",
       .menuText = "&Normal Mode",
       .number = 24,
       .run = [this] { Com_Sync_Click(); }},
      {.handler = "Comp_SyncBatch_Click",
       .toolTip = "Choose the two folders among the presets, then compare them",
       .icon = "sync",
       .heading = "Tools/Compare",
       .menuText = "&Batch Mode",
       .number = 62,
       .run = [this] { Comp_SyncBatch_Click(); }},
      {.handler = "LLComp_Click",
       .toolTip = "A small window compares the file in hand with its twin in the other panel",
       .icon = "line-compare",
       .heading = "Tools/Compare",
       .menuText = "&Line To Line Compare",
       .newGroup = true,
       .run = [this] { Form42.LLComp_Click(); }},
  });
}

}  // namespace varnholt::compare
