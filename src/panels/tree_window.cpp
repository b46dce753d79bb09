#include "panels/tree_window.hpp"

namespace varnholt::panels {

panels::Form9::Form9(controls::MessageLoop& loop) : Form(loop, "Form9") {
  Caption = "TreeView, One-Way Command Source.";
  Text1.Locked = true;
  Text2.Locked = true;
}

}  // namespace varnholt::panels
