#pragma once

#include "workshop/WorkshopModel.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class QHBoxLayout;
class QLabel;
class QSplitter;

namespace velmarin {

class GuideForm;
class Host;
class NoticeBar;
class PageListPane;
class PageStage;
class ProgressBar;

/// A book at work: the list of its pages, the strip of the current one between its neighbors, the fields, and the bar
/// that counts. What the user does goes through here, so that what is typed is kept before another page is shown.
class WorkshopDesk : public QWidget, public WorkshopDisplay {
    Q_OBJECT
  public:
    WorkshopDesk(std::unique_ptr<WorkshopBook> book, Host& host, QWidget* parent);
    ~WorkshopDesk() override;

    WorkshopModel& model() { return model_; }
    GuideForm& form() const { return *form_; }
    PageStage& stage() const { return *stage_; }
    PageListPane& list() const { return *list_; }
    NoticeBar& notice() const { return *notice_; }
    /// In logical pixels.
    int listWidth() const;
    void setListWidth(int width);
    /// A widget at the right of the bar that counts.
    void addToBar(QWidget* widget);

    void take();
    void takeWithoutHeadwords();
    void goToDoubtful(int direction);
    void step(int by);
    void select(std::size_t row);
    /// Takes back what was typed into the fields, or else the last change.
    void undo();
    void redo();
    /// Keeps what was typed, and saves what could not be saved.
    void keepChanges();
    /// The same. False if the draft could not be saved and the user does not want to lose it.
    bool mayClose();

    void showRows() override;
    void showChangedRows(const std::vector<std::size_t>& rows) override;
    void showCurrentPage() override;
    void showCounts() override;
    void showAllDone() override;
    void showSaved(const Result& result) override;
    void showTakenOver(std::size_t rows) override;

  signals:
    /// What can be undone or redone has changed, or another page is the current one.
    void changed();

  protected:
    bool event(QEvent* event) override;

  private:
    QWidget* makeWork();
    QWidget* makeButtons();
    QWidget* makeBar();
    void showCountsNow();

    std::unique_ptr<WorkshopBook> book_;
    WorkshopModel model_;
    Host& host_;
    PageListPane* list_;
    GuideForm* form_;
    PageStage* stage_;
    NoticeBar* notice_;
    QSplitter* splitter_;
    QLabel* counts_;
    ProgressBar* share_;
    QHBoxLayout* bar_;
    QTimer saveAgain_, lookOutside_, countsLater_;
};

} // namespace velmarin
