#pragma once

#include "search/SearchDisplay.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>

namespace velmarin {

class AnchoredLayout;
class BusyState;
class PageDeck;
class ProgressBar;
class SearchModel;

/// The search field with its button, its check box and the progress bar: hands what is typed to a SearchModel.
class QueryBar : public QObject, public SearchDisplay {
    Q_OBJECT

  public:
    QueryBar(SearchModel& search, PageDeck& deck, BusyState& busy, QWidget* parent, AnchoredLayout& layout);

    QLineEdit* SearchEF() const { return SearchEF_; }
    QCheckBox* SeparatelyCB() const { return SeparatelyCB_; }
    QPushButton* OKBT() const { return OKBT_; }
    ProgressBar* PB() const { return PB_; }

    /// Shows the initial text and clears the check box.
    void showNoGroup();
    /// Searches the text of the field. While another search runs, it waits for the end of that one.
    void OKBT_Action();

    void showSeparately(bool separately) override;
    void showProgress(int maximum) override;
    void setProgress(int value) override;
    void hideProgress() override;

  signals:
    /// A query has been searched, and its words may go to the side window.
    void searched(const QString& query);
    /// Emitted after `searched` and all that it starts.
    void finished();
    /// The check box has changed, by the user or by code.
    void separatelyChanged();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool SearchEF_KeyDown(int key, Qt::KeyboardModifiers modifiers);
    /// What follows a search: the side window, the acknowledgement, the field ready for the next word.
    void finish(const QString& query);

    SearchModel& search_;
    PageDeck& deck_;
    BusyState& busy_;
    QLineEdit* SearchEF_;
    QCheckBox* SeparatelyCB_;
    QPushButton* OKBT_;
    ProgressBar* PB_;
    /// A search waits for the end of another.
    bool searchWaits_ = false;
};

} // namespace velmarin
