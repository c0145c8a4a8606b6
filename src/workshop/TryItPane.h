#pragma once

#include "workshop/TryIt.h"
#include "workshop/WorkshopModel.h"

#include <QWidget>

#include <string>

class QLabel;
class QLineEdit;

namespace velmarin {

class Host;
class SmartCanvas;

/// A window of its own in which a typed word says which page it would open, and shows that page, before anything is
/// made.
class TryItPane : public QWidget {
    Q_OBJECT
  public:
    /// @param model outlives the pane
    TryItPane(const WorkshopModel& model, Host& host, QWidget* parent);

    /// To be called when the draft may have changed.
    void takeDraft();
    void takeFocus();
    void setWord(const std::string& word);

  signals:
    /// The user wants to see a page in the list.
    void pageWanted(const std::string& page);

  private:
    void lookUp();
    void showPage(const std::string& page);

    const WorkshopModel& model_;
    Draft draft_; ///< of which `dictionary_` is
    TryIt dictionary_;
    std::string shown_;
    QLineEdit* wordEF_;
    QLabel* foundST_;
    SmartCanvas* canvas_;
};

} // namespace velmarin
