#include "workshop/WorkshopMenus.h"

#include "book/PageChanges.h"
#include "workshop/GuideForm.h"
#include "workshop/PageListPane.h"
#include "workshop/PageStage.h"
#include "workshop/ReadingControl.h"
#include "workshop/WorkshopDesk.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <utility>

namespace velmarin {

namespace {

constexpr double kZoomStep = 1.5;
constexpr double kGreatestZoom = 4;

void zoom(WorkshopDesk& desk, double by) {
    StripView& strip = desk.stage().strip();
    strip.setZoom(std::clamp(strip.zoom() * by, 1.0, kGreatestZoom));
}

bool hasPage(WorkshopDesk& desk) {
    return desk.model().current().has_value();
}

} // namespace

WorkshopMenus::WorkshopMenus(WorkshopMenusPort& window, QMenuBar& bar) : QObject(&bar), window_(window) {
    fillFile(*bar.addMenu(QStringLiteral("&File")));
    fillEdit(*bar.addMenu(QStringLiteral("&Edit")));
    page_ = bar.addMenu(QStringLiteral("&Page"));
    fillPage(*page_);
    fillScan(*page_);
    fillView(*bar.addMenu(QStringLiteral("&View")));
    book_ = bar.addMenu(QStringLiteral("&Book"));
    refresh();
}

QAction* WorkshopMenus::addItem(QMenu& menu, const QString& text, const QKeySequence& key,
                                std::function<void(WorkshopDesk&)> action,
                                std::function<bool(WorkshopDesk&)> possible) {
    QAction* item = menu.addAction(text);
    item->setShortcut(key);
    connect(item, &QAction::triggered, this, [this, action = std::move(action)] {
        if (window_.desk() != nullptr)
            action(*window_.desk());
    });
    items_.push_back({item, possible ? std::move(possible) : hasPage});
    return item;
}

void WorkshopMenus::refresh() {
    WorkshopDesk* desk = window_.desk();
    for (const Item& item : items_)
        item.action->setEnabled(desk != nullptr && item.possible(*desk));
    wholePage_->setChecked(desk != nullptr && desk->stage().wholePage());
}

void WorkshopMenus::fillFile(QMenu& menu) {
    const auto add = [&](const char* text, const QKeySequence& key, auto command) {
        QAction* item = menu.addAction(QString::fromUtf8(text));
        item->setShortcut(key);
        connect(item, &QAction::triggered, this, command);
    };
    add("&Open a book…", QKeySequence::Open, [this] { window_.chooseBook(); });
    add("Open a &scan…", {}, [this] { window_.chooseScan(); });
    add("Open a &folder of page images…", {}, [this] { window_.chooseFolder(); });
    menu.addSeparator();
    add("Correct a &dictionary…", {}, [this] { window_.correctDictionary(); });
    menu.addSeparator();
    add("&Quit", Qt::CTRL | Qt::Key_Q, [this] { window_.closeWindow(); });
}

void WorkshopMenus::fillEdit(QMenu& menu) {
    addItem(
        menu, QStringLiteral("&Undo"), Qt::CTRL | Qt::Key_Z, [](WorkshopDesk& desk) { desk.undo(); },
        [](WorkshopDesk& desk) { return desk.model().canUndo(); });
    QAction* redo = addItem(
        menu, QStringLiteral("&Redo"), {}, [](WorkshopDesk& desk) { desk.redo(); },
        [](WorkshopDesk& desk) { return desk.model().canRedo(); });
    redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
}

void WorkshopMenus::fillPage(QMenu& menu) {
    addItem(menu, QStringLiteral("&No headwords on this page"), Qt::Key_F8,
            [](WorkshopDesk& desk) { desk.takeWithoutHeadwords(); });
    menu.addSeparator();
    addItem(menu, QStringLiteral("Next &doubtful page"), Qt::Key_F3, [](WorkshopDesk& desk) { desk.goToDoubtful(1); });
    addItem(menu, QStringLiteral("&Previous doubtful page"), Qt::SHIFT | Qt::Key_F3,
            [](WorkshopDesk& desk) { desk.goToDoubtful(-1); });
}

void WorkshopMenus::fillScan(QMenu& menu) {
    const auto possible = [this](WorkshopDesk& desk) { return window_.reading() != nullptr && hasPage(desk); };
    const auto add = [&](const char* text, std::function<void(BookSettings&, int)> change) {
        addItem(
            menu, QString::fromUtf8(text), {},
            [this, change = std::move(change)](WorkshopDesk&) { window_.reading()->changePage(change); }, possible);
    };
    menu.addSeparator();
    add("Turn &left", [](BookSettings& settings, int page) { turnPage(settings, page, -90); });
    add("Turn &right", [](BookSettings& settings, int page) { turnPage(settings, page, 90); });
    add("Turn &upside down", [](BookSettings& settings, int page) { turnPage(settings, page, 180); });
    menu.addSeparator();
    add("Leave page &out", leaveOutPage);
    addItem(
        menu, QStringLiteral("&Bring back pages left out"), {},
        [this](WorkshopDesk&) {
            window_.reading()->changeSettings([](BookSettings& settings) { settings.leftOut.clear(); });
        },
        possible);
    addItem(
        menu, QStringLiteral("&Count page numbers from here"), {},
        [this](WorkshopDesk& desk) {
            window_.reading()->changePage([number = desk.form().number()](BookSettings& settings, int page) {
                numberPagesFrom(settings, page, number);
            });
        },
        possible);
}

void WorkshopMenus::fillView(QMenu& menu) {
    wholePage_ = addItem(menu, QStringLiteral("&Whole page"), Qt::Key_F4, [this](WorkshopDesk& desk) {
        desk.stage().setWholePage(wholePage_->isChecked());
        refresh();
    });
    wholePage_->setCheckable(true);
    for (const bool down : {false, true})
        addItem(
            menu, down ? QStringLiteral("Scroll d&own") : QStringLiteral("Scroll &up"),
            Qt::CTRL | (down ? Qt::Key_Down : Qt::Key_Up), [down](WorkshopDesk& desk) { desk.stage().scroll(down); },
            [](WorkshopDesk& desk) { return desk.stage().wholePage(); });
    addItem(menu, QStringLiteral("&Doubtful pages only"), Qt::CTRL | Qt::Key_D,
            [](WorkshopDesk& desk) { desk.list().doubtfulOnly()->toggle(); });
    menu.addSeparator();
    addItem(menu, QStringLiteral("&Larger strip"), QKeySequence::ZoomIn,
            [](WorkshopDesk& desk) { zoom(desk, kZoomStep); });
    addItem(menu, QStringLiteral("&Smaller strip"), QKeySequence::ZoomOut,
            [](WorkshopDesk& desk) { zoom(desk, 1 / kZoomStep); });
}

} // namespace velmarin
