#include "shell/MainWindowParts.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/TabPanel.h"
#include "search/HitList.h"
#include "search/PageDeck.h"
#include "search/QueryBar.h"
#include "search/TabPanelPlace.h"
#include "shell/AboutPanel.h"
#include "shell/GroupPicker.h"
#include "shell/NoGroupNotice.h"
#include "shell/PageImages.h"
#include "shell/SideAccess.h"
#include "shell/SideButton.h"
#include "shell/TabPages.h"
#include "shell/WindowListPort.h"
#include "shell/WindowServices.h"

#include <QFrame>
#include <QMainWindow>

namespace velmarin {

namespace {

QWidget* makeContent(QMainWindow& window) {
    auto* content = new QWidget(&window);
    content->setMinimumSize(64, 64);
    // The layout is in pixels, and so is its text: at any other size captions would be cut off.
    QFont font = content->font();
    font.setPixelSize(12);
    content->setFont(font);
    window.setCentralWidget(content);
    return content;
}

void addPlacard(QWidget* content, AnchoredLayout& layout) {
    auto* placard = new QFrame(content);
    placard->setObjectName(QStringLiteral("Placard1"));
    layout.add(placard, QRect(174, 3, 80, 28), Anchor::Left | Anchor::Top);
}

} // namespace

MainWindowParts::MainWindowParts(QMainWindow& window, GroupPort& groupPort, const WindowServices& services)
    : model(services.host, services.busy,
            [&windows = services.windows]() -> HitModel& { return windows.defaultHits(); }),
      content(makeContent(window)),
      layout(new AnchoredLayout(content, QSize(design::kWindowWidth, design::kWindowHeight))) {
    groupPicker = new GroupPicker(groupPort, services, content, *layout);
    addPlacard(content, *layout);
    deck = new PageDeck(model.tabs, services.host, content);
    queryBar = new QueryBar(model.search, *deck, services.busy, content, *layout);
    layout->add(deck->TB(),
                QRect(design::kTabPanelLeft, design::kTabPanelTop, design::kTabPanelWidth, design::kTabPanelHeight),
                Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
    hitList = new HitList(model.hits, deck->TB(), content, *layout);
    sideAccess = std::make_unique<SideAccess>(window, services.preferences, model.group, model.search, *queryBar);
    sideButton = new SideButton(*sideAccess, services, content, *layout);
    about = new AboutPanel(content, *layout);
    notice = std::make_unique<NoGroupNotice>(content, *layout);
    pages = std::make_shared<TabPages>(model.group, model.tabs);
    setTabOrder();
    connectParts(services);
}

MainWindowParts::~MainWindowParts() = default;

void MainWindowParts::setTabOrder() const {
    // The row at the top comes first, for the keyboard and for a screen reader, in whatever order it was made.
    sideButton->SubWinBV()->stackUnder(deck->TB());
    QWidget::setTabOrder(groupPicker->SelectDicFolPU(), sideButton->SubWinBV());
    QWidget::setTabOrder(sideButton->SubWinBV(), queryBar->SearchEF());
    QWidget::setTabOrder(queryBar->SearchEF(), queryBar->SeparatelyCB());
    QWidget::setTabOrder(queryBar->SeparatelyCB(), queryBar->OKBT());
}

void MainWindowParts::connectParts(const WindowServices& services) const {
    QObject::connect(queryBar, &QueryBar::searched, sideButton, &SideButton::synchronise);
    QObject::connect(queryBar, &QueryBar::finished, about, &AboutPanel::hideAbout);
    QObject::connect(queryBar, &QueryBar::finished, content, [this] { notice->setReason(""); });
    QObject::connect(deck, &PageDeck::errataChosen, content,
                     [this, &pageImages = services.pageImages](const FolderItem& file, int tab) {
                         pageImages.show(file, pages, tab);
                     });
}

} // namespace velmarin
