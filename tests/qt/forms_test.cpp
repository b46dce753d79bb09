#include "core/start_windows.hpp"
#include "drawn.hpp"
#include "panels/form1.hpp"
#include "panels/tree_window.hpp"
#include "qt/form_table.hpp"
#include "qt/icons.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/surface.hpp"
#include "support/app_rig.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScopeGuard>
#include <QScreen>

namespace varnholt::test {
namespace {

/// The whole program, drawn. It is built but not started: no form is shown until a test shows it.
class DrawnForms : public testing::Test {
 protected:
  qt::FormWindow& draw(controls::Form& form) {
    form.Show();
    loop.flush();
    auto* window = loop.windowOf(form);
    if (!window) throw std::runtime_error(form.name() + " has no row in qt/form_table.cpp");
    return *window;
  }

  std::vector<controls::Form*> allForms() {
    std::vector<controls::Form*> forms = app.allDialogs();
    forms.insert(forms.end(), {&app.Form1, &app.Form9, &app.frmSplash});
    return forms;
  }

  AppRig rig;
  qt::QtMessageLoop loop;
  app::App app{loop, *rig.platform};
};

/// What stands in the messages while they are looked at: as long as such texts get.
constexpr char Message[] = "Cannot Copy Or Move Item : \r\\Holiday pictures from the coast, second week\rInto Itself !";

void fillMessages(core::MessageDialogs& dialogs) {
  for (auto* label : {&dialogs.Form11.Label1, &dialogs.Form12.Label1, &dialogs.Form13.Label1})
    label->Caption = Message;
  dialogs.Form11.Command2.Visible = true;
}

TEST_F(DrawnForms, EveryControlHasItsWidgetAndEveryFormThatIsDrawnIsTested) {
  std::set<std::string> tested;
  for (controls::Form* form : allForms()) {
    tested.insert(form->name());
    for (const auto& name : draw(*form).unjoined())
      ADD_FAILURE() << form->name() << "." << name << " has no fitting widget of that objectName in its .ui file";
  }
  for (const auto& name : qt::formNames())
    EXPECT_TRUE(tested.contains(name)) << name << " is no dialog of a room";
}

TEST_F(DrawnForms, EveryControlIsFoundByOneNameAndSaysWhatItIsFor) {
  fillMessages(app.dialogs);
  for (controls::Form* form : allForms()) {
    QWidget& window = draw(*form).widget();
    std::map<QString, QString> users;
    for (const auto* control : form->controls()) {
      const auto* widget = window.findChild<QWidget*>(qt::toQt(control->name()));
      if (!widget) continue;
      EXPECT_TRUE(widget->focusPolicy() == Qt::NoFocus || !widget->toolTip().isEmpty())
          << form->name() << "." << control->name() << " has no tool tip";
      EXPECT_TRUE(!qobject_cast<const QAbstractItemView*>(widget) ||
                  widget->accessibleDescription() == widget->toolTip())
          << form->name() << "." << control->name() << " does not speak its tool tip";
      if (control->kind() == controls::Kind::MenuItem) continue;
      const QString name = widget->accessibleName();
      const auto* label = dynamic_cast<const controls::Label*>(control);
      const bool isText = label && !label->Caption->empty();  // told as it reads, also when another is alike
      if (isText) continue;
      EXPECT_NE(name, widget->objectName()) << form->name() << ": a name for people, not for programmers";
      EXPECT_FALSE(name.isEmpty()) << form->name() << "." << control->name();
      EXPECT_FALSE(users.contains(name)) << form->name() << ": " << qPrintable(users[name]) << " and "
                                         << control->name() << " are both called " << qPrintable(name);
      users[name] = widget->objectName();
    }
  }
}

TEST_F(DrawnForms, TextsAreAnnouncedAsTheyReadAlsoWithAnAmpersandOrWhenTheyAreAlike) {
  auto& form = app.fileops.Form7;
  form.Label1.Caption = form.Label3.Caption = "Source FileName:  a&b.txt";
  QWidget& window = draw(form).widget();
  for (const char* label : {"Label1", "Label3"})
    EXPECT_EQ(window.findChild<QWidget*>(QLatin1String(label))->accessibleName(),
              QStringLiteral("Source FileName:  a&b.txt"));
}

TEST_F(DrawnForms, TextsStandOnPanelsNotOnThePictureOfTheSkin) {
  for (controls::Form* form : allForms())
    for (const auto* label : draw(*form).widget().findChildren<QLabel*>()) {
      const QWidget* behind = label->parentWidget();
      while (behind && !qobject_cast<const qt::Surface*>(behind))
        behind = behind->parentWidget();
      EXPECT_TRUE(behind) << form->name() << ": " << qPrintable(label->text());
    }
}

TEST_F(DrawnForms, AFieldThatIsDisabledLooksIt) {
  auto& form = app.fileops.Form32;
  QWidget& window = draw(form).widget();
  auto* field = window.findChild<QWidget*>(QStringLiteral("Text1"));
  const auto ground = [&] { return field->grab().toImage().pixelColor(field->width() - 5, field->height() / 2); };
  const QColor enabled = ground();
  form.Text1.Enabled = false;
  loop.flush();
  EXPECT_NE(ground(), enabled);
}

TEST_F(DrawnForms, OperationsAndTheirQuestionsBeginOnTheButtonThatEnterStandsFor) {
  std::vector<controls::Form*> forms = app.fileops.dialogs();
  std::erase(forms, &app.fileops.Form2);  // these begin on the name that they ask for
  std::erase(forms, &app.fileops.Form32);
  forms.push_back(&app.dialogs.Form11);
  for (controls::Form* form : forms) {
    const QWidget* focused = draw(*form).widget().focusWidget();
    ASSERT_TRUE(focused) << form->name();
    EXPECT_EQ(qt::fromQt(focused->objectName()), form->defaultButton) << form->name();
  }
}

TEST_F(DrawnForms, WhatHasTheKeyboardShowsIt) {
  for (controls::Form* form : allForms()) {
    QWidget& window = draw(*form).widget();
    window.activateWindow();
    QCoreApplication::processEvents();
    for (auto* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus)) continue;
      if (qobject_cast<const QComboBox*>(widget->parentWidget())) continue;  // the box has it
      if (auto* before = QApplication::focusWidget()) before->clearFocus();
      const QImage without = widget->grab().toImage();
      widget->setFocus();
      window.setAttribute(Qt::WA_KeyboardFocusChange);
      const QImage with = widget->grab().toImage();
      double most = 1;
      for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
          most = std::max(most, qt::theme::contrast(without.pixelColor(x, y), with.pixelColor(x, y)));
      EXPECT_GE(most, 1.9) << form->name() << "." << qPrintable(widget->objectName());
    }
    form->Hide();
  }
}

TEST_F(DrawnForms, MnemonicsAreUniqueInAWindow) {
  for (controls::Form* form : allForms()) {
    QWidget& window = draw(*form).widget();
    QStringList texts;
    for (const auto* button : window.findChildren<QAbstractButton*>())
      if (!button->isHidden() && !button->text().startsWith(QLatin1Char('|'))) texts += button->text();
    if (const auto* bar = window.findChild<QMenuBar*>())
      for (const auto* heading : bar->actions())
        texts += heading->text();
    std::map<QString, QString> users;
    for (const QString& text : texts) {
      const QString mnemonic = QKeySequence::mnemonic(text).toString();
      EXPECT_TRUE(mnemonic.isEmpty() || !users.contains(mnemonic))
          << form->name() << ": " << qPrintable(users[mnemonic]) << " and " << qPrintable(text) << " share a key";
      users[mnemonic] = text;
    }
  }
}

TEST_F(DrawnForms, EveryEntryOfAMenuHasALetterOfItsOwn) {
  for (auto* menu : draw(app.Form1).widget().findChildren<QMenu*>()) {
    emit menu->aboutToShow();
    QStringList letters;
    for (const auto* entry : menu->actions())
      if (entry->isVisible() && !entry->isSeparator()) letters += QKeySequence::mnemonic(entry->text()).toString();
    EXPECT_FALSE(letters.contains(QString())) << qPrintable(menu->title());
    EXPECT_EQ(letters.removeDuplicates(), 0) << qPrintable(menu->title());
  }
}

TEST_F(DrawnForms, EveryIconThatIsNamedIsThere) {
  std::set<std::string> names = {"varnholt", "link", "link-gone", "info", "question", "warning", "error"};
  draw(app.Form1);
  for (const auto* control : app.Form1.controls()) {
    if (const auto* button = dynamic_cast<const controls::Button*>(control)) names.insert(button->Icon.get());
    if (const auto* item = dynamic_cast<const controls::MenuItem*>(control)) names.insert(item->Icon.get());
    if (const auto* list = dynamic_cast<const controls::ListView*>(control))
      for (const auto& [number, name] : list->ImageList.get())
        names.insert(name);
    if (const auto* combo = dynamic_cast<const controls::ComboBox*>(control))
      for (const auto& item : combo->Items.get())
        names.insert(item.icon);
  }
  names.erase("");
  EXPECT_GE(names.size(), 30u);
  for (const auto& name : names)
    EXPECT_TRUE(qt::hasIcon(name)) << "assets/icons/" << name << ".svg is missing";
}

TEST(Icons, AreDrawnAtTheDensityOfTheScreenAndAnUnknownOneIsASquare) {
  const QIcon icon = qt::iconNamed("folder");
  const QImage once = icon.pixmap(QSize(16, 16), 1.0).toImage(), twice = icon.pixmap(QSize(16, 16), 2.0).toImage();
  EXPECT_EQ(once.size(), QSize(16, 16));
  EXPECT_EQ(twice.size(), QSize(32, 32));
  EXPECT_NE(twice.scaled(16, 16).scaled(32, 32).convertToFormat(once.format()), twice) << "drawn anew, not blown up";
  EXPECT_FALSE(qt::hasIcon("no such icon"));
  EXPECT_GT(qt::iconNamed("no such icon").pixmap(16, 16).toImage().pixelColor(3, 3).alpha(), 0);
  EXPECT_TRUE(qt::iconNamed("").isNull());
}

void expectNothingCut(const std::string& where, const QWidget& window) {
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_GE(label->height(), needed) << where << ": " << qPrintable(label->objectName());
    if (!label->wordWrap()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << where << ": " << qPrintable(label->objectName());
    }
  }
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    // The filter line is as high as the menu bar, without room for a frame.
    if (!button->isVisible() || button->text().isEmpty() || button->text().startsWith(QLatin1Char('|'))) continue;
    EXPECT_GE(button->width(), button->sizeHint().width()) << where << ": " << qPrintable(button->text());
    EXPECT_GE(button->height(), button->sizeHint().height()) << where << ": " << qPrintable(button->text());
  }
}

/// The letters of all windows are so many times as large meanwhile.
[[nodiscard]] auto largerFont(double times) {
  const QFont before = QApplication::font();
  QFont larger = before;
  larger.setPointSizeF(before.pointSizeF() * times);
  QApplication::setFont(larger);
  return qScopeGuard([before] { QApplication::setFont(before); });
}

TEST_F(DrawnForms, NothingIsCutInLargerFonts) {
  const auto font = largerFont(1.5);
  fillMessages(app.dialogs);
  for (controls::Form* form :
       std::initializer_list<controls::Form*>{&app.dialogs.Form11, &app.dialogs.Form12, &app.dialogs.Form13,
                                              &app.Form35, &app.frmTip, &app.frmSplash, &app.Form1}) {
    QWidget& window = draw(*form).widget();
    QCoreApplication::processEvents();
    expectNothingCut(form->name(), window);
    form->Visible = false;
    loop.flush();
  }
}

TEST_F(DrawnForms, WhereTheScreenIsTooSmallADialogScrollsToWhatHasTheKeyboard) {
  const auto font = largerFont(3);
  QWidget& window = draw(app.filters.Form24).widget();
  EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
  QApplication::setActiveWindow(&window);
  auto* last = window.findChild<QWidget*>(QStringLiteral("Command2"));
  last->setFocus();
  EXPECT_TRUE(window.rect().contains(QRect(last->mapTo(&window, QPoint()), last->size())));
}

// Every text that may hold a name: labels of the questions, fields, lists to choose from. Labels of the rename dialog
// show a shortened name, those of the dates show dates, those of the properties, the drives and the network count,
// those of the compare name file systems, those of the notes their fields, and those of the help count topics.
void tell(controls::Form& form, const std::string& name) {
  const std::vector<std::string> others{"Form14", "Form15", "Form17", "Form18", "Form24",
                                        "Form30", "Form31", "Form41", "Form46", "frmHelp"};
  const bool namesStandInLabels = std::ranges::count(others, form.name()) == 0;
  for (controls::Control* control : form.controls()) {
    auto* label = dynamic_cast<controls::Label*>(control);
    if (label && namesStandInLabels) label->Caption = "Target FileName:     C:\\Photos\\" + name;
    if (auto* field = dynamic_cast<controls::TextBox*>(control)) field->Text = name;
    if (auto* choice = dynamic_cast<controls::ComboBox*>(control)) choice->Items = {{name, ""}};
  }
}

TEST_F(DrawnForms, ALongNameMakesNoQuestionWiderThanTheScreenAndTheNextShortOneIsSmallAgain) {
  const std::string longName(255, 'n');
  for (controls::Form* form : allForms()) {
    // The last one tells no names, and has its place and size from the main window.
    if (form == &app.Form1 || form == &app.Form9 || form == &app.tools.form8 || form == &app.vdt.Form44) continue;
    const auto shown = [&](const std::string& name) {
      tell(*form, name);
      QWidget& window = draw(*form).widget();
      QCoreApplication::processEvents();
      expectNothingCut(form->name(), window);
      EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry())) << form->name();
      const QRect place = window.geometry();
      form->Visible = false;
      loop.flush();
      return place;
    };
    const QRect before = shown("coast.jpg");
    shown(longName);
    EXPECT_EQ(shown("coast.jpg"), before) << form->name();
  }
}

TEST_F(DrawnForms, APaneWithNothingInItGivesItsRoomAwayAndTheMainWindowKeepsItsHeight) {
  QWidget& window = draw(app.Form1).widget();
  auto& form = app.Form1;
  auto* lower = window.findChild<QWidget*>(QStringLiteral("panel_lower"));
  for (controls::Control* each :
       std::initializer_list<controls::Control*>{&form.ListView3, &form.Picture1, &form.Picture2})
    each->Visible = false;
  loop.flush();
  window.resize(700, 500);
  const int height = window.height();
  for (const bool shown : {true, false}) {
    form.ListView3.Visible = shown;
    loop.flush();
    EXPECT_EQ(lower->isHidden(), !shown);
    EXPECT_EQ(window.height(), height);
  }
  window.resize(1280, 800);
  QCoreApplication::processEvents();
  const auto* files = window.findChild<QWidget*>(QStringLiteral("ListView1"));
  const int alone = files->width();
  form.Picture1.Visible = true;
  loop.flush();
  EXPECT_LT(files->width(), alone * 0.6) << "a picture stands beside the list";
}

}  // namespace
}  // namespace varnholt::test
