#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QKeySequence;
class QMenu;
class QMenuBar;
class QString;

namespace velmarin {

class ReadingControl;
class WorkshopDesk;

/// What the menus ask of their window.
class WorkshopMenusPort {
  public:
    virtual ~WorkshopMenusPort() = default;

    /// nullptr while no book is open.
    virtual WorkshopDesk* desk() const = 0;
    /// nullptr unless the book of a scan is open.
    virtual ReadingControl* reading() const = 0;
    virtual void chooseBook() = 0;
    /// Asks for a file.
    virtual void chooseScan() = 0;
    /// Asks for a scan that is a folder of pictures.
    virtual void chooseFolder() = 0;
    /// Lets a dictionary that exists be corrected.
    virtual void correctDictionary() = 0;
    virtual void closeWindow() = 0;
};

/// The menus of a WorkshopWindow, and their keys.
class WorkshopMenus : public QObject {
    Q_OBJECT
  public:
    WorkshopMenus(WorkshopMenusPort& window, QMenuBar& bar);

    /// The menu of what is done with the book as a whole.
    QMenu& bookMenu() const { return *book_; }
    /// The menu of what is done with the current page.
    QMenu& pageMenu() const { return *page_; }
    /// Enables what can be done now.
    void refresh();

    /// Adds an item that runs `action` with the open book. It is enabled if `possible` says so; without it, if the book
    /// has a page.
    QAction* addItem(QMenu& menu, const QString& text, const QKeySequence& key,
                     std::function<void(WorkshopDesk&)> action, std::function<bool(WorkshopDesk&)> possible = {});

  private:
    struct Item {
        QAction* action;
        std::function<bool(WorkshopDesk&)> possible;
    };
    void fillFile(QMenu& menu);
    void fillEdit(QMenu& menu);
    void fillPage(QMenu& menu);
    void fillScan(QMenu& menu);
    void fillView(QMenu& menu);

    WorkshopMenusPort& window_;
    QMenu *page_ = nullptr, *book_ = nullptr;
    QAction* wholePage_ = nullptr;
    std::vector<Item> items_;
};

} // namespace velmarin
