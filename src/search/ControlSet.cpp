#include "search/ControlSet.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/PlainToolTip.h"
#include "controls/TabPanel.h"
#include "platform/QtText.h"
#include "search/TabPanelPlace.h"
#include "view/SmartCanvas.h"

namespace velmarin {

namespace {

struct ButtonPlan {
    BevelButton* ControlSet::*member;
    const char* name;
    const char* caption;
    const char* toolTip; ///< also what screen readers add to the caption
    int left, width;
};

// In the order of the layout from left to right, which is also the order of the Tab key.
constexpr ButtonPlan kButtons[] = {
    {&ControlSet::BVback, "BVback", "Back", "Previous page (Ctrl+Left)", 18, 70},
    {&ControlSet::BVnext, "BVnext", "Next", "Next page (Ctrl+Right)", 91, 70},
    {&ControlSet::BVup, "BVup", "Up", "One screenful up (Ctrl+Up)", 167, 70},
    {&ControlSet::BVdown, "BVdown", "Down", "One screenful down (Ctrl+Down)", 239, 70},
    {&ControlSet::BVjump, "BVjump", "Page", "Go to a page", 331, 80},
    {&ControlSet::BVHistory, "BVHistory", "History", "Pages seen (back with Alt+Left, forward with Alt+Right)", 414,
     80},
    {&ControlSet::BVErrata, "BVErrata", "Errata", "Further pages of this entry", 501, 80},
    {&ControlSet::BVimage, "BVimage", "Image size", "How the page fits the window", 582, 96},
};

const QString kNameOfThePage = QStringLiteral("Name of the page image");
constexpr int kButtonTop = 67;
constexpr int kButtonHeight = 16;

/// A place of the window's layout in the coordinates of a tab's panel.
QRect onPanel(int left, int top, int width, int height) {
    return {left - design::kTabPanelLeft, top - design::kTabPanelTop - TabPanel::kBarHeight, width, height};
}

} // namespace

ControlSet::ControlSet(int index, QWidget* panel, Host& host) {
    auto* layout =
        new AnchoredLayout(panel, QSize(design::kTabPanelWidth, design::kTabPanelHeight - TabPanel::kBarHeight));
    const auto nameIt = [index](QWidget* control, const char* name) {
        control->setObjectName(QStringLiteral("%1.%2").arg(QLatin1String(name)).arg(index));
    };
    for (const ButtonPlan& plan : kButtons) {
        auto* button = new BevelButton(panel);
        button->setCaption(plan.caption);
        button->setToolTip(QString::fromUtf8(plan.toolTip));
        button->setEnabled(false);
        nameIt(button, plan.name);
        layout->add(button, onPanel(plan.left, kButtonTop, plan.width, kButtonHeight), Anchor::Left | Anchor::Top);
        this->*plan.member = button;
    }
    BVjump->setShowsCurrentRow(true);
    BVimage->setShowsCurrentRow(true);
    BVjump->setHasMenu(true);
    BVErrata->setHasMenu(true);
    // List mode and preferences files have fits without a row.
    BVimage->setKeepsAnyValue(true);
    resetImageSize();
    clearHistory();

    ImageNameST = new QLabel(panel);
    nameIt(ImageNameST, "ImageNameST");
    ImageNameST->setTextFormat(Qt::PlainText);
    ImageNameST->setAccessibleDescription(kNameOfThePage);
    ImageNameST->setStyleSheet(QStringLiteral("QLabel { color: #ff8000 }"));
    layout->add(ImageNameST, onPanel(679, 67, 135, 18), Anchor::Left | Anchor::Top | Anchor::Right);

    MainCanvas = new SmartCanvas(host, panel);
    nameIt(MainCanvas, "MainCanvas");
    layout->add(MainCanvas, onPanel(18, 84, 796, 714), Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
}

void ControlSet::showEmptyTab() {
    showJumpRows({});
    showErrata({});
    resetImageSize();
    clearHistory();
    enablePaging(false);
    ImageNameST->clear();
    describePage({}, {}, {});
    dropPage();
    refreshPage();
}

PageOutcome ControlSet::showPage(const FolderItem& file, int fit) {
    MainCanvas->setMode(fit);
    const bool shown = MainCanvas->SetPicture(file);
    return {.shown = shown, .anyPage = MainCanvas->hasImage(), .problem = MainCanvas->loadProblem()};
}

void ControlSet::showNoPicture() {
    MainCanvas->setExtraText("No Picture");
    MainCanvas->mDrawExtraText();
}

void ControlSet::dropPage() {
    MainCanvas->dropImage();
}

void ControlSet::fitPage(int fit) {
    MainCanvas->setMode(fit);
}

void ControlSet::refreshPage() {
    MainCanvas->Refresh();
}

void ControlSet::mJumpScroll_vertical(int direction) {
    MainCanvas->mJumpScroll_vertical(direction);
}

void ControlSet::showPageName(const std::string& name) {
    ImageNameST->setText(toQ(name));
}

void ControlSet::describePage(const std::string& dictionary, const std::string& page, const std::string& problem) {
    MainCanvas->describePage(dictionary, page, problem);
    const QString trouble = toQ(page + ": " + problem);
    ImageNameST->setToolTip(plainToolTip(problem.empty() ? toQ(page) : trouble));
    ImageNameST->setAccessibleDescription(problem.empty() ? kNameOfThePage : trouble);
}

void ControlSet::enablePaging(bool enabled) {
    for (BevelButton* button : {BVnext, BVback, BVjump, BVHistory, BVimage, BVup, BVdown})
        button->setEnabled(enabled);
}

void ControlSet::showJumpRows(const std::vector<std::string>& captions) {
    BVjump->setRows(captions);
}

void ControlSet::showJumpValue(int menuValue) {
    BVjump->setMenuValue(menuValue);
}

void ControlSet::clearHistory() {
    BVHistory->DeleteAllRows();
    BVHistory->AddRow("Delete");
    BVHistory->AddSeparator();
}

void ControlSet::addHistoryRow(const std::string& name) {
    BVHistory->AddRow(name);
}

void ControlSet::showHistoryValue(int menuValue) {
    BVHistory->setMenuValue(menuValue);
}

void ControlSet::showErrata(const std::vector<std::string>& names) {
    BVErrata->setRows(names);
    BVErrata->setEnabled(!names.empty());
}

void ControlSet::showFitValue(int menuValue) {
    BVimage->setMenuValue(menuValue);
}

void ControlSet::resetImageSize() {
    BVimage->setRows({"Adjust by height", "Original size", "Adjust by width"});
}

} // namespace velmarin
