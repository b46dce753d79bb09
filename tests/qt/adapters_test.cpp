// Each kind of control both ways: what the program sets is shown and fires nothing, what the user does arrives once.
#include "controls/rich_text.hpp"
#include "controls/tree_view.hpp"
#include "joined.hpp"
#include "qt/widgets/picture_view.hpp"
#include "qt/widgets/status_strip.hpp"

#include <QAccessible>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <future>

namespace varnholt::test {
namespace {

struct Everything : controls::Form {
  explicit Everything(controls::MessageLoop& loop) : Form(loop, "Everything") {}
  controls::Label Label1{*this, "Label1"};
  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};
  controls::Button Command1{*this, "Command1"};
  controls::CheckBox Check1{*this, "Check1"};
  controls::ComboBox Combo1{*this, "Combo1"};
  controls::TreeView TreeView1{*this, "TreeView1"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 3};
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::Slider Slider1{*this, "Slider1"};
  controls::MonthView MonthView1{*this, "MonthView1"};
  controls::RichTextBox Rich1{*this, "Rich1"};
  controls::PictureBox Picture1{*this, "Picture1"};
};

class Adapters : public Joined {
 protected:
  Adapters() {
    const std::pair<controls::Control&, QWidget&> pairs[] = {
        {form.Label1, label},     {form.Text1, line},     {form.Text2, lines},      {form.Command1, button},
        {form.Check1, check},     {form.Combo1, combo},   {form.TreeView1, tree},   {form.StatusBar1, status},
        {form.ProgressBar1, bar}, {form.Slider1, slider}, {form.MonthView1, month}, {form.Rich1, rich},
        {form.Picture1, picture}};
    auto* rows = new QVBoxLayout(&window);
    for (const auto& [control, widget] : pairs) {
      rows->addWidget(&widget);
      join(control, widget);
    }
    picture.setMinimumSize(60, 60);
    window.show();
  }

  Everything form{loop};
  QWidget window;
  QLabel label;
  QLineEdit line;
  QPlainTextEdit lines;
  QPushButton button;
  QCheckBox check;
  QComboBox combo;
  QTreeWidget tree;
  qt::StatusStrip status;
  QProgressBar bar;
  QSlider slider{Qt::Horizontal};
  QCalendarWidget month;
  QTextEdit rich;
  qt::PictureView picture;
};

TEST_F(Adapters, WhatTheProgramSetsIsShownAndFiresNothing) {
  int fired = 0;
  const auto count = [&] { ++fired; };
  form.Text1.Change = form.Text2.Change = form.Combo1.Change = form.Slider1.Change = form.Rich1.Change = count;
  form.Check1.Click = form.Combo1.Click = form.MonthView1.DateClick = count;

  form.Label1.Caption = "one\rtwo <b>";
  form.Text1.Text = "C:\\Photos";
  form.Text2.Text = "a\rb";
  form.Command1.Caption = "&Copy";
  form.Command1.FontUnderline = true;
  form.Check1.Value = 1;
  form.Combo1.Items = std::vector<controls::ComboBox::Item>{{"C:", "drive-fixed"}, {"D:", ""}};
  form.Combo1.choose(1);
  form.StatusBar1.setPanel(2, "1  Item(s) Selected");
  form.ProgressBar1.Max = 5e9;
  form.ProgressBar1.Value = 2.5e9;
  form.Slider1.Max = 50;
  form.Slider1.Value = 20;
  form.MonthView1.Value = controls::MonthView::Day{2024, 2, 29};
  form.Rich1.setDocument(controls::RichText::of("note"));
  draw();

  EXPECT_EQ(label.text(), QStringLiteral("one\ntwo <b>"));
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  EXPECT_EQ(line.text(), QStringLiteral("C:\\Photos"));
  EXPECT_EQ(lines.toPlainText(), QStringLiteral("a\nb"));
  EXPECT_EQ(button.text(), QStringLiteral("&Copy"));
  EXPECT_TRUE(button.font().underline());
  EXPECT_TRUE(check.isChecked());
  EXPECT_EQ(combo.currentText(), QStringLiteral("D:"));
  EXPECT_EQ(status.texts().at(1), QStringLiteral("1  Item(s) Selected"));
  EXPECT_EQ(bar.value() * 2, bar.maximum());
  EXPECT_EQ(slider.value(), 20);
  EXPECT_EQ(month.selectedDate(), QDate(2024, 2, 29));
  EXPECT_EQ(rich.toPlainText(), QStringLiteral("note"));
  EXPECT_EQ(fired, 0);
}

TEST_F(Adapters, WhatTheUserTypesArrivesAtTheCursorUnlessItIsLocked) {
  int changes = 0;
  form.Text1.Change = form.Text2.Change = form.Rich1.Change = [&] { ++changes; };
  draw();
  const auto types = [this](const QString& text) {
    for (QWidget* widget : std::initializer_list<QWidget*>{&line, &lines, &rich})
      QTest::keyClicks(widget, text);
    return form.Text1.Text.get() + "/" + form.Text2.Text.get() + "/" + form.Rich1.Document().plain();
  };
  EXPECT_EQ(types(QStringLiteral("ad")), "ad/ad/ad");
  EXPECT_EQ(changes, 6);
  line.setCursorPosition(1);
  QTest::keyClicks(&line, QStringLiteral("b"));
  form.Text1.ToolTipText = "changed meanwhile";
  draw();
  EXPECT_EQ(line.cursorPosition(), 2);
  form.Text1.Locked = form.Text2.Locked = true;
  draw();
  EXPECT_EQ(types(QStringLiteral("c")), "abd/ad/adc");
  EXPECT_EQ(line.text(), QStringLiteral("abd"));
  form.Text1.Locked = false;
  form.Text1.prompt("Key in Name !");
  draw();
  EXPECT_EQ(types(QStringLiteral("x")), "x/ad/adcx") << "words that ask for others give way";
}

TEST_F(Adapters, FormattedTextIsShownAndComesBackAsItIsWritten) {
  controls::RichText text;
  text.append("plain \tb\xFF", {});
  text.append("red", {true, true, true, 36, 0x0000FF});
  text.endParagraph();
  text.append("\u2028line", {});
  form.Rich1.setDocument(text);
  draw();
  EXPECT_EQ(form.Rich1.Document(), text);
  rich.moveCursor(QTextCursor::End);
  QTest::keyClicks(&rich, QStringLiteral("!"));
  text.append("!", {});
  EXPECT_EQ(form.Rich1.Document(), text);
  rich.moveCursor(QTextCursor::Start);
  QTest::keyClicks(&rich, QStringLiteral("?"));
  EXPECT_EQ(form.Rich1.Document().paragraphs[0].front().text, "?plain \tb\xFF") << "in the look that stands there";
  QTest::keyClick(&rich, Qt::Key_Backspace);

  // The look of what is selected: the button shows what is there, and changes that alone.
  controls::TextFormat told;
  form.Rich1.SelChange = [&] { told = form.Rich1.SelFormat(); };
  QTextCursor cursor = rich.textCursor();
  cursor.setPosition(8);
  cursor.setPosition(12, QTextCursor::KeepAnchor);
  rich.setTextCursor(cursor);
  EXPECT_TRUE(told.bold && told.size == 36);
  form.Rich1.format({.bold = false, .color = controls::NoColor});
  EXPECT_FALSE(told.bold);
  const auto& changed = form.Rich1.Document().paragraphs[0];
  ASSERT_EQ(changed.size(), 2u);
  EXPECT_EQ(changed[1], (controls::TextRun{"red", {false, true, true, 36, controls::NoColor}}));
  form.Rich1.Locked = true;
  form.Rich1.format({.bold = true});
  EXPECT_FALSE(form.Rich1.Document().paragraphs[0][1].format.bold);
}

TEST_F(Adapters, WhatAssistiveTechnologyTypesArrivesUnlessTheTextIsLocked) {
  form.Combo1.Editable = true;
  form.Combo1.Items = std::vector<controls::ComboBox::Item>{{"*.txt", ""}};
  draw();
  const auto setText = [](QWidget& widget) {
    QAccessible::queryAccessibleInterface(&widget)->setText(QAccessible::Value, QStringLiteral("*.odt"));
  };
  for (QWidget* widget : std::initializer_list<QWidget*>{&line, combo.lineEdit()})
    setText(*widget);
  EXPECT_EQ(form.Text1.Text.get() + "|" + form.Combo1.Text.get(), "*.odt|*.odt");
  form.Text1.Text = "stays";
  form.Text1.Locked = true;
  draw();
  setText(line);
  EXPECT_EQ(line.text(), QStringLiteral("stays"));
}

// Toggles what has that name below a widget, as a screen reader does.
void toggle(QAccessibleInterface* below, const QString& name) {
  for (int at = 0; below && at < below->childCount(); ++at) {
    QAccessibleInterface* child = below->child(at);
    if (child && child->text(QAccessible::Name) == name && child->actionInterface())
      return child->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    toggle(child, name);
  }
}

TEST_F(Adapters, WhatAssistiveTechnologyMarksIsChosenAsByAClick) {
  std::string told;
  form.Combo1.Items = std::vector<controls::ComboBox::Item>{{"*.txt", ""}, {"*.odt", ""}};
  form.Combo1.Click = [&] { told += form.Combo1.Text.get() + " "; };
  form.TreeView1.NodeClick = [&](const controls::TreeNode& node) { told += node.Text + " "; };
  form.MonthView1.DateClick = [&] { told += std::to_string(form.MonthView1.Value->day) + " "; };
  auto& root = form.TreeView1.add(nullptr, "C:");
  form.TreeView1.setExpanded(form.TreeView1.add(&root, "one"), true);
  form.TreeView1.add(root.children.front().get(), "two");
  form.TreeView1.add(&root, "three");
  form.TreeView1.setExpanded(root, true);
  form.MonthView1.Value = controls::MonthView::Day{2024, 2, 29};
  draw();
  const std::pair<QWidget&, const char*> marked[] = {{combo, "none: makes the list"},
                                                     {combo, "*.odt"},
                                                     {combo, "*.txt"},
                                                     {combo, "*.odt"},
                                                     {tree, "three"},
                                                     {tree, "one"},
                                                     {month, "12"}};
  for (const auto& [widget, name] : marked) {
    toggle(QAccessible::queryAccessibleInterface(&widget), QString::fromLatin1(name));
    QCoreApplication::processEvents();
    draw();
  }
  EXPECT_EQ(told, "*.odt *.txt *.odt three one 12 ");
}

TEST_F(Adapters, ButtonsArePressedByMouseAndKeyboardUnlessDisabled) {
  int presses = 0;
  form.Command1.Click = [&] { ++presses; };
  draw();
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(presses, 2);
  form.Command1.Caption = "&Stop";
  draw();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(presses, 3) << "at once, not when the button has been shown pressed";
  form.Command1.Enabled = false;
  draw();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(presses, 3);
}

TEST_F(Adapters, WhatTheUserClicksArrivesOnce) {
  std::string events;
  const auto note = [&](const char* event) { return [&events, event] { events += std::string(event) + " "; }; };
  form.Check1.Click = note("checked");
  form.Combo1.Change = note("changed");
  form.Combo1.Click = note("chosen");
  form.Slider1.Change = note("slid");
  form.MonthView1.DateClick = note("day");
  form.Label1.Click = note("label");
  form.Label1.DblClick = note("double");
  form.Picture1.Click = note("picture");
  form.Picture1.DblClick = note("open");
  form.Check1.Caption = "Do Not Show Tip at Startup";
  form.Combo1.Items = std::vector<controls::ComboBox::Item>{{"C:", ""}, {"D:", ""}};
  form.Combo1.choose(0);
  form.Slider1.Max = 20;
  form.Slider1.Value = 5;
  form.MonthView1.Value = controls::MonthView::Day{2024, 3, 15};
  draw();
  QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
  QTest::keyClick(&combo, Qt::Key_Down);
  QTest::keyClick(&slider, Qt::Key_Right);
  Q_EMIT month.clicked(QDate(2024, 3, 20));
  QTest::mouseClick(&label, Qt::LeftButton);
  QTest::mouseDClick(&label, Qt::LeftButton);
  QTest::mouseClick(picture.viewport(), Qt::LeftButton);
  QTest::mouseClick(picture.viewport(), Qt::RightButton);
  QTest::mouseDClick(picture.viewport(), Qt::LeftButton);
  EXPECT_EQ(events, "checked changed chosen slid day label double picture open ");
  draw();
  EXPECT_EQ(form.Check1.Value.get(), 1);
  EXPECT_TRUE(check.isChecked());
  EXPECT_EQ(form.Combo1.Text.get(), "D:");
  EXPECT_EQ(form.Slider1.Value.get(), 6);
  EXPECT_EQ(form.MonthView1.Value.get(), (controls::MonthView::Day{2024, 3, 20}));
  check.toggle();  // as assistive technology does
  QTest::keyClick(month.findChild<QTableView*>(), Qt::Key_Left);
  EXPECT_EQ(form.Check1.Value.get(), 0);
  EXPECT_EQ(form.MonthView1.Value.get(), (controls::MonthView::Day{2024, 3, 19}));
}

TEST_F(Adapters, ATreeShowsItsNodesAndTellsClicksOnceAndNothingOfNodesThatAreGone) {
  auto& root = form.TreeView1.add(nullptr, "C:", "", "drive-fixed");
  auto& child = form.TreeView1.add(&root, "Photos");
  std::string events;
  form.TreeView1.NodeClick = [&](controls::TreeNode& node) { events += "click " + node.Text + " "; };
  form.TreeView1.NodeMove = [&](controls::TreeNode& node) { events += "move " + node.Text + " "; };
  form.TreeView1.Expand = [&](controls::TreeNode& node) { events += "expand " + node.Text + " "; };
  draw();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  tree.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(events, "") << "the keyboard alone chooses nothing";
  tree.topLevelItem(0)->setExpanded(true);
  EXPECT_TRUE(root.Expanded);
  const QPoint at = tree.visualItemRect(tree.topLevelItem(0)->child(0)).center();
  for (int clicks = 0; clicks < 2; ++clicks) {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, at);
    QTest::qWait(0);
    EXPECT_EQ(form.TreeView1.selected(), &child);
  }
  QTest::keyClick(&tree, Qt::Key_Up);
  EXPECT_EQ(std::exchange(events, ""), "expand C: click Photos click Photos move C: ");
  form.TreeView1.clear();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(events, "");
  draw();
  EXPECT_EQ(tree.topLevelItemCount(), 0);
}

TEST_F(Adapters, ATreeMayBeFilledAnewWhileItTellsAClick) {
  auto& tree1 = form.TreeView1;
  auto& root = tree1.add(nullptr, "C:");
  tree1.add(&root, "Photos");
  root.Expanded = true;
  const auto fill = [&](controls::TreeNode& node) {
    tree1.removeChildren(node);
    tree1.add(&node, "Coast");
    tree1.setExpanded(node, true);
    draw();  // as a handler's turn does
  };
  tree1.NodeClick = tree1.Expand = fill;
  draw();
  for (const auto key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down}) {
    QTest::keyClick(&tree, key);
    QCoreApplication::processEvents();
  }
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(tree.topLevelItem(0)).center());
  QCoreApplication::processEvents();
  ASSERT_EQ(tree.topLevelItem(0)->childCount(), 1);
  EXPECT_EQ(tree.topLevelItem(0)->child(0)->text(0), QStringLiteral("Coast"));
}

TEST_F(Adapters, ATreeStaysWhereItIsScrolledToWhenItGrows) {
  auto& root = form.TreeView1.add(nullptr, "C:");
  for (int folder = 0; folder < 200; ++folder)
    form.TreeView1.add(&root, "folder " + std::to_string(folder));
  root.Expanded = true;
  form.TreeView1.select(&root);
  draw();
  tree.setFixedHeight(120);
  tree.scrollToBottom();
  const int scrolled = tree.verticalScrollBar()->value();
  ASSERT_GT(scrolled, 0);
  form.TreeView1.add(root.children.back().get(), "new");
  form.TreeView1.setExpanded(*root.children.back(), true);
  draw();
  EXPECT_EQ(tree.verticalScrollBar()->value(), scrolled);
  form.TreeView1.select(root.children.front().get());
  draw();
  EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualItemRect(tree.currentItem()).center()))
      << "a node that is selected is shown";
}

TEST_F(Adapters, PicturesAreReadByProgramPathAndFitted) {
  std::string wanted;
  read.setReader([&](const std::string& path, std::uint64_t) {
    wanted = path;
    return redPicture(QSize(40, 20));
  });
  form.Picture1.Picture = "C:\\Photos\\red.png";
  picture.setFixedSize(100, 100);
  draw();
  QImage drawn;
  ASSERT_TRUE(QTest::qWaitFor([&] {
    drawn = picture.grab().toImage();
    return drawn.pixelColor(10, 10) == QColor(Qt::red);
  }));
  EXPECT_EQ(wanted, "C:\\Photos\\red.png");
  EXPECT_NE(drawn.pixelColor(50, 50), QColor(Qt::red)) << "a small picture keeps its size, from the upper left";
  form.Picture1.Stretch = true;
  draw();
  drawn = picture.grab().toImage();
  EXPECT_EQ(drawn.pixelColor(2, 50), QColor(Qt::red));
  EXPECT_NE(drawn.pixelColor(50, 20), QColor(Qt::red)) << "it keeps its proportions";
  form.Picture1.Stretch = false;
  picture.setFixedSize(30, 100);
  draw();
  EXPECT_EQ(picture.horizontalScrollBar()->maximum(), 10) << "a larger one is scrolled";
}

TEST_F(Adapters, WhatIsNoPictureGivesWayToTheFallbackAndTheOneBeforeStaysUntilThen) {
  std::promise<void> goOn;
  read.setReader([&, wait = goOn.get_future().share()](const std::string& path, std::uint64_t) {
    if (path == "text.jpg") wait.wait();
    return path == "text.jpg" ? "no picture" : redPicture(path == "tool.gif" ? QSize(10, 10) : QSize(40, 20));
  });
  picture.setFixedSize(100, 100);
  const auto isRed = [&](int x, int y) { return picture.grab().toImage().pixelColor(x, y) == QColor(Qt::red); };
  form.Picture1.Fallback = "tool.gif";
  form.Picture1.Picture = "red.png";
  draw();
  ASSERT_TRUE(waitFor([&] { return isRed(30, 15); }));
  form.Picture1.Picture = "text.jpg";
  draw();
  EXPECT_TRUE(isRed(30, 15)) << "no flicker";
  EXPECT_TRUE(waitFor([&] { return !isRed(5, 5); })) << "but not for long";
  goOn.set_value();
  EXPECT_TRUE(waitFor([&] { return isRed(5, 5) && !isRed(30, 15); }));
}

TEST_F(Adapters, APictureThatIsNoLongerWantedIsDropped) {
  std::promise<void> goOn;
  read.setReader([&, wait = goOn.get_future().share()](const std::string& path, std::uint64_t) {
    const bool slow = path.ends_with("slow.png");
    if (slow) wait.wait();
    return redPicture(QSize(40, 20), "PNG", slow ? Qt::red : Qt::green);
  });
  picture.setFixedSize(100, 100);
  const auto middle = [&] { return picture.grab().toImage().pixelColor(20, 10); };
  form.Picture1.Picture = "C:\\slow.png";
  draw();
  form.Picture1.Picture = "C:\\green.png";
  draw();
  EXPECT_TRUE(QTest::qWaitFor([&] { return middle() == QColor(Qt::green); })) << "it waits for no other";
  goOn.set_value();
  QTest::qWait(50);
  EXPECT_EQ(middle(), QColor(Qt::green));
  form.Picture1.Picture = "";
  draw();
  EXPECT_NE(middle(), QColor(Qt::green));
}

TEST_F(Adapters, TheCommonPropertiesReachTheWidget) {
  form.Command1.Enabled = false;
  form.Label1.Visible = false;
  form.Command1.ToolTipText = "Copy Selected Items";
  form.Text1.AccessibleName = "Where to";
  form.Picture1.MousePointer = controls::pointer::Hourglass;
  form.Text1.BackColor = 0xC0FFFF;  // light yellow
  form.Text1.ForeColor = 0x00FFFF;  // yellow, which nobody could read on it
  draw();
  EXPECT_FALSE(button.isEnabled());
  EXPECT_TRUE(label.isHidden());
  EXPECT_EQ(button.toolTip(), QStringLiteral("Copy Selected Items"));
  EXPECT_EQ(picture.cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(line.palette().color(QPalette::Base), QColor(255, 255, 192));
  EXPECT_LT(line.palette().color(QPalette::Text).lightness(), 128);
  form.Text1.BackColor = form.Text1.ForeColor = controls::NoColor;
  form.Picture1.MousePointer = controls::pointer::Default;
  draw();
  EXPECT_EQ(line.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
  EXPECT_EQ(picture.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Adapters, FocusGoesBothWays) {
  std::string events;
  form.Text1.GotFocus = [&] { events += "+text "; };
  form.Text1.LostFocus = [&] { events += "-text "; };
  form.Command1.GotFocus = [&] { events += "+button "; };
  draw();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  button.setFocus();
  events.clear();
  QTest::mouseClick(&line, Qt::LeftButton);
  line.setFocus(Qt::MouseFocusReason);
  button.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(events, "+text -text +button ");
  EXPECT_TRUE(form.Command1.hasFocus());
}

TEST(StatusStrip, TheRestStaysWhereItIsWhenATextGetsShorter) {
  qt::StatusStrip strip;
  strip.resize(600, 24);
  strip.setTexts({QStringLiteral("Time: 23:59:59"), QStringLiteral("Date")});
  strip.show();
  const int before = strip.sizeHint().width();
  strip.setTexts({QStringLiteral("Time: 1:11"), QStringLiteral("Date")});
  EXPECT_EQ(strip.sizeHint().width(), before);
  strip.resize(640, 24);
  QCoreApplication::processEvents();
  EXPECT_LT(strip.sizeHint().width(), before);
}

}  // namespace
}  // namespace varnholt::test
