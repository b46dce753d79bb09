#include "qt/form_table.hpp"

#include "qt/widgets/surface.hpp"

#include "ui_form1.h"
#include "ui_form10.h"
#include "ui_form11.h"
#include "ui_form12.h"
#include "ui_form13.h"
#include "ui_form14.h"
#include "ui_form20.h"
#include "ui_form21.h"
#include "ui_form24.h"
#include "ui_form25.h"
#include "ui_form3.h"
#include "ui_form32.h"
#include "ui_form34.h"
#include "ui_form35.h"
#include "ui_form4.h"
#include "ui_form5.h"
#include "ui_form6.h"
#include "ui_form7.h"
#include "ui_form8.h"
#include "ui_form9.h"
#include "ui_frm_splash.h"
#include "ui_frm_tip.h"

#include <QMainWindow>

namespace varnholt::qt {
namespace {

template <class Ui, class Top>
std::unique_ptr<QWidget> build() {
  auto top = std::make_unique<Top>();
  Ui().setupUi(top.get());
  return top;
}

// Without a frame, and known to window managers as what it is.
std::unique_ptr<QWidget> buildSplash() {
  auto top = build<Ui::frmSplash, SkinDialog>();
  top->setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  return top;
}

// Stands above the main window, whichever of the two is the active one.
std::unique_ptr<QWidget> buildTreeWindow() {
  auto top = build<Ui::Form9, QMainWindow>();
  top->setWindowFlag(Qt::Tool);
  return top;
}

struct Row {
  const char* name;
  std::unique_ptr<QWidget> (*build)();
};

constexpr Row Forms[] = {
    {"Form1", build<Ui::Form1, QMainWindow>},
    {"Form3", build<Ui::Form3, SkinDialog>},
    {"Form4", build<Ui::Form4, SkinDialog>},
    {"Form5", build<Ui::Form5, SkinDialog>},
    {"Form6", build<Ui::Form6, SkinDialog>},
    {"Form7", build<Ui::Form7, SkinDialog>},
    {"form8", build<Ui::form8, SkinDialog>},
    {"Form9", buildTreeWindow},
    {"Form10", build<Ui::Form10, SkinDialog>},
    {"Form11", build<Ui::Form11, SkinDialog>},
    {"Form12", build<Ui::Form12, SkinDialog>},
    {"Form13", build<Ui::Form13, SkinDialog>},
    {"Form32", build<Ui::Form32, SkinDialog>},
    {"Form14", build<Ui::Form14, SkinDialog>},
    {"Form20", build<Ui::Form20, SkinDialog>},
    {"Form21", build<Ui::Form21, SkinDialog>},
    {"Form24", build<Ui::Form24, SkinDialog>},
    {"Form25", build<Ui::Form25, SkinDialog>},
    {"Form34", build<Ui::Form34, SkinDialog>},
    {"Form35", build<Ui::Form35, SkinDialog>},
    {"frmSplash", buildSplash},
    {"frmTip", build<Ui::frmTip, SkinDialog>},
};

}  // namespace

std::unique_ptr<QWidget> buildForm(const std::string& name) {
  for (const Row& row : Forms)
    if (name == row.name) return row.build();
  return nullptr;
}

std::vector<std::string> formNames() {
  std::vector<std::string> names;
  for (const Row& row : Forms)
    names.emplace_back(row.name);
  return names;
}

}  // namespace varnholt::qt
