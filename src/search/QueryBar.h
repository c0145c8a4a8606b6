#pragma once

#include "platform/Host.h"
#include "search/WindowState.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>

#include <functional>
#include <string>

namespace velmarin {

class AnchoredLayout;
class BusyState;
class PageDeck;
class ProgressBar;
class Searcher;

/// The search field with its button, its check box and the progress bar: decides which dictionaries a query goes to,
/// and takes it there.
class QueryBar : public QObject {
    Q_OBJECT

  public:
    QueryBar(WindowState& state, Searcher& searcher, PageDeck& deck, Host& host, BusyState& busy, QWidget* parent,
             AnchoredLayout& layout);

    QLineEdit* SearchEF() const { return SearchEF_; }
    QCheckBox* SeparatelyCB() const { return SeparatelyCB_; }
    QPushButton* OKBT() const { return OKBT_; }
    ProgressBar* PB() const { return PB_; }

    /// The initial text, and the check box off.
    void showNoGroup();
    /// Runs a search for what stands in the field. While another one runs it is put off to the end of that one.
    void OKBT_Action();

  signals:
    /// A query has been searched, and its words may go to the side window.
    void searched(const QString& query);
    /// Everything about a query is done.
    void finished();
    /// The check box has changed, by the user or by code.
    void separatelyClicked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool SearchEF_KeyDown(int key, Qt::KeyboardModifiers modifiers);
    void runQuery(const std::string& query);
    /// What follows a search: the side window, the acknowledgement, the field ready for the next word.
    void finish(const QString& query);
    void searchAllIntoList(const std::string& query);
    void searchAllTabs(const std::string& query);

    WindowState& state_;
    Searcher& searcher_;
    PageDeck& deck_;
    Host& host_;
    BusyState& busy_;
    QLineEdit* SearchEF_;
    QCheckBox* SeparatelyCB_;
    QPushButton* OKBT_;
    ProgressBar* PB_;
    bool putOff_ = false;
};

} // namespace velmarin
