#pragma once

#include "workshop/PictureShelf.h"
#include "workshop/StripView.h"
#include "workshop/WorkshopModel.h"

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace velmarin {

class Host;
class SmartCanvas;

/// The strip of the current page, large, between those of the page before and the page after, and in place of them, if
/// the user wants it, the whole page.
class PageStage : public QWidget {
    Q_OBJECT
  public:
    /// @param form shown below the strip of the current page
    PageStage(WorkshopModel& model, Host& host, QWidget* form, QWidget* parent);

    void showCurrentPage();
    /// Shows the words and states of the pages, which have changed.
    void showWords();
    /// Decodes the pictures again, which have changed.
    void dropPictures();

    void setWholePage(bool whole);
    bool wholePage() const { return whole_; }
    /// Scrolls the whole page, if it is shown, by a screenful.
    void scroll(bool down);
    StripView& strip() const { return *strip_; }

  signals:
    /// A page beside the current one was clicked.
    void stepped(int by);

  private:
    struct Neighbor {
        QLabel* caption;
        StripView* strip;
        int by; ///< rows from the current one
    };
    Neighbor makeNeighbor(int by);
    void makeLayout(QWidget* form);
    void wantPictures();
    void showPictures();
    /// The row so far from the current one; nullptr if there is none.
    const DraftPage* pageAt(int by) const;
    void showStrip(StripView& strip, const DraftPage* page);
    void showWholePage();
    QString heading() const;

    WorkshopModel& model_;
    PictureShelf shelf_;
    Neighbor before_, after_;
    QLabel* heading_;
    StripView* strip_;
    SmartCanvas* canvas_;
    std::string onCanvas_; ///< the page on the canvas
    bool whole_ = false;
};

} // namespace velmarin
