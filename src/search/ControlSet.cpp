#include "search/ControlSet.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/PlainToolTip.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "search/WindowState.h"
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

ControlSet ControlSet::make(int index, QWidget* panel, Host& host) {
    ControlSet set;
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
        set.*plan.member = button;
    }
    set.BVjump->setShowsCurrentRow(true);
    set.BVimage->setShowsCurrentRow(true);
    set.BVjump->setHasMenu(true);
    set.BVErrata->setHasMenu(true);
    // List mode and preferences files have fits without a row.
    set.BVimage->setKeepsAnyValue(true);
    set.resetImageSize();
    set.resetHistory();

    set.ImageNameST = new QLabel(panel);
    nameIt(set.ImageNameST, "ImageNameST");
    set.ImageNameST->setTextFormat(Qt::PlainText);
    set.ImageNameST->setAccessibleDescription(kNameOfThePage);
    set.ImageNameST->setStyleSheet(QStringLiteral("QLabel { color: #ff8000 }"));
    layout->add(set.ImageNameST, onPanel(679, 67, 135, 18), Anchor::Left | Anchor::Top | Anchor::Right);

    set.MainCanvas = new SmartCanvas(host, panel);
    nameIt(set.MainCanvas, "MainCanvas");
    layout->add(set.MainCanvas, onPanel(18, 84, 796, 714), Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
    return set;
}

void ControlSet::reset() const {
    BVjump->DeleteAllRows();
    BVErrata->DeleteAllRows();
    BVErrata->setEnabled(false);
    resetImageSize();
    resetHistory();
    enablePaging(false);
    ImageNameST->clear();
    ImageNameST->setToolTip({});
    ImageNameST->setAccessibleDescription(kNameOfThePage);
    MainCanvas->describePage({}, {}, {});
    MainCanvas->dropImage();
    MainCanvas->Refresh();
}

void ControlSet::describePage(const std::string& dictionary, const std::string& page,
                              const std::string& problem) const {
    MainCanvas->describePage(dictionary, page, problem);
    const QString trouble = toQ(page + ": " + problem);
    ImageNameST->setToolTip(plainToolTip(problem.empty() ? toQ(page) : trouble));
    ImageNameST->setAccessibleDescription(problem.empty() ? kNameOfThePage : trouble);
}

void ControlSet::resetImageSize() const {
    BVimage->setRows({"Adjust by height", "Original size", "Adjust by width"});
}

void ControlSet::resetHistory() const {
    BVHistory->DeleteAllRows();
    BVHistory->AddRow("Delete");
    BVHistory->AddSeparator();
}

void ControlSet::enablePaging(bool enabled) const {
    for (BevelButton* button : {BVnext, BVback, BVjump, BVHistory, BVimage, BVup, BVdown})
        button->setEnabled(enabled);
}

} // namespace velmarin
