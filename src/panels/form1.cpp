#include "panels/form1.hpp"

namespace varnholt::panels {

Form1::Form1(controls::MessageLoop& loop) : Form(loop, "Form1") { Caption = "Varnholt"; }

}  // namespace varnholt::panels
