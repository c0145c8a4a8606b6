#pragma once

#include "workshop/OtherReadings.h"
#include "workshop/StripPlan.h"
#include "workshop/WorkshopModel.h"

#include <QWidget>

class QKeyEvent;
class QLineEdit;

namespace velmarin {

class GuideField;

/// The fields of the current page: first headword, page number, last headword, placed as on the page. What is typed
/// counts when the user takes it or goes to another page.
class GuideForm : public QWidget {
    Q_OBJECT
  public:
    GuideForm(WorkshopModel& model, QWidget* parent);

    /// Shows the words of the current page. What was typed for the same page stays.
    void showPage();
    /// Gives the focus to the field that is likelier wrong, with its text selected.
    void takeFocus();
    /// Keeps what was typed into the fields. Does nothing if they are as they were.
    void keepTyped();
    /// True if the fields differ from the row of their page.
    bool typed() const { return words() != wordsShown_; }
    /// Shows the words of the row in place of what was typed.
    void dropTyped();
    /// What the field of the page number has.
    std::string number() const { return words().number; }
    /// Takes the words and goes to the next doubtful page.
    void take();
    /// The same without the headwords.
    void takeWithoutHeadwords();

  signals:
    /// The focus went to a field for what is at this side of the page.
    void sideChanged(velmarin::StripSide side);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeLayout();
    void connectFields();
    GuideField& field(GuidePlace place) const { return place == GuidePlace::First ? *first_ : *last_; }
    bool fieldKey(int key);
    bool isKeyOfWindow(const QKeyEvent& key, const QLineEdit& edit) const;
    PageWords words() const;
    /// The words, which from now on do not count as typed.
    PageWords notedWords();
    void showProblems();
    void showOthers();
    void chooseOther(int digit);

    WorkshopModel& model_;
    GuideField *first_, *last_;
    QLineEdit* number_;
    std::string shown_; ///< the page whose words the fields have
    PageWords wordsShown_;
    std::vector<OtherReading> others_;
};

} // namespace velmarin
