#include "maintenance/ExpDicDlg.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"
#include "maintenance/Export.h"
#include "maintenance/LockedFolder.h"
#include "platform/Busy.h"
#include "platform/Host.h"
#include "platform/QtText.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>

namespace velmarin {

namespace {

constexpr QSize kSize(428, 455);
constexpr int kCheckAll = 0;

enum Column { kCheckBox, kName };

constexpr std::string_view kCheckItems = "Check the item(s) which you want to export.";

} // namespace

/// While this object exists, the dialog is disabled and cannot be closed.
class ExpDicDlg::Working {
  public:
    explicit Working(ExpDicDlg& dialog) : dialog_(dialog), guard_(dialog.busy_) { set(true); }
    ~Working() { set(false); }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

  private:
    void set(bool working) {
        dialog_.working_ = working;
        for (QWidget* each : {static_cast<QWidget*>(dialog_.CheckBV_), static_cast<QWidget*>(dialog_.MainLB_),
                              static_cast<QWidget*>(dialog_.CancelBT_), static_cast<QWidget*>(dialog_.OKBT_)})
            each->setEnabled(!working);
    }

    ExpDicDlg& dialog_;
    Busy guard_;
};

ExpDicDlg::ExpDicDlg(Host& host, BusyState& busy, QWidget* parent)
    : QDialog(parent), host_(host), busy_(busy), CheckBV_(new BevelButton("Check", this)), ST_(new QLabel(this)),
      MainLB_(new QTableWidget(0, 2, this)), CancelBT_(new QPushButton(QStringLiteral("Cancel"), this)),
      PB_(new ProgressBar(Qt::Horizontal, this)), OKBT_(new QPushButton(QStringLiteral("Export"), this)) {
    setObjectName(QStringLiteral("ExpDicDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    makeControls();
    resize(kSize);
}

void ExpDicDlg::makeControls() {
    auto* layout = new AnchoredLayout(this, kSize);
    CheckBV_->setObjectName(QStringLiteral("CheckBV"));
    CheckBV_->setAccessibleName(QStringLiteral("Check or uncheck all dictionaries"));
    CheckBV_->AddRow("Check all");
    CheckBV_->AddRow("Uncheck all");
    layout->add(CheckBV_, QRect(14, 12, 60, 22), Anchor::Left | Anchor::Top);
    connect(CheckBV_, &BevelButton::rowChosen, this, &ExpDicDlg::CheckBV_Action);

    ST_->setText(toQ(kCheckItems));
    ST_->setObjectName(QStringLiteral("ST"));
    ST_->setStyleSheet(QStringLiteral("color: #ff0000"));
    layout->add(ST_, QRect(83, 19, 339, 15), Anchor::Left | Anchor::Top);

    MainLB_->setObjectName(QStringLiteral("MainLB"));
    MainLB_->setAccessibleName(QStringLiteral("Dictionaries"));
    MainLB_->setHorizontalHeaderLabels({QStringLiteral(" "), QStringLiteral("Dictionaries")});
    MainLB_->horizontalHeader()->setHighlightSections(false);
    MainLB_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    MainLB_->horizontalHeader()->setStretchLastSection(true);
    MainLB_->verticalHeader()->hide();
    MainLB_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MainLB_->setSelectionBehavior(QAbstractItemView::SelectRows);
    MainLB_->setSelectionMode(QAbstractItemView::SingleSelection);
    MainLB_->setTabKeyNavigation(false);
    MainLB_->installEventFilter(this);
    MainLB_->viewport()->installEventFilter(this);
    layout->add(MainLB_, QRect(14, 39, 397, 365), Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);

    CancelBT_->setObjectName(QStringLiteral("CancelBT"));
    CancelBT_->setAutoDefault(false);
    layout->add(CancelBT_, QRect(14, 424, 80, 20), Anchor::Left | Anchor::Bottom);
    connect(CancelBT_, &QPushButton::clicked, this, &ExpDicDlg::CancelBT_Action);

    PB_->setObjectName(QStringLiteral("PB"));
    PB_->setAccessibleName(QStringLiteral("Progress of the export"));
    PB_->setMaximum(100);
    layout->add(PB_, QRect(104, 423, 220, 20), Anchor::Left | Anchor::Top);

    OKBT_->setObjectName(QStringLiteral("OKBT"));
    OKBT_->setAutoDefault(false);
    layout->add(OKBT_, QRect(331, 424, 80, 20), Anchor::Left | Anchor::Bottom);
    connect(OKBT_, &QPushButton::clicked, this, &ExpDicDlg::OKBT_Action);
}

void ExpDicDlg::fill(const FolderItem& dictionaryFolder) {
    const Working working(*this);
    for (const FolderItem& dictionary :
         exportableDictionaries(dictionaryFolder, [this](const WorkDone&) { host_.Yield(); })) {
        const int row = MainLB_->rowCount();
        MainLB_->insertRow(row);
        auto* check = new QTableWidgetItem;
        check->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        check->setCheckState(Qt::Unchecked);
        MainLB_->setItem(row, kCheckBox, check);
        auto* name = new QTableWidgetItem(toQ(dictionary.Name()));
        name->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        name->setToolTip(pathToQ(dictionary.path()));
        MainLB_->setItem(row, kName, name);
        dictionaries_.push_back(dictionary);
        host_.Yield();
    }
}

bool ExpDicDlg::isChecked(int row) const {
    return MainLB_->item(row, kCheckBox)->checkState() == Qt::Checked;
}

void ExpDicDlg::setChecked(int row, bool checked) {
    MainLB_->item(row, kCheckBox)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void ExpDicDlg::CheckBV_Action(int menuRow) {
    for (int row = 0; row < MainLB_->rowCount(); ++row)
        setChecked(row, menuRow == kCheckAll);
}

void ExpDicDlg::CancelBT_Action() {
    close();
}

void ExpDicDlg::OKBT_Action() {
    if (busy_.busy()) { // an export started within an update would wait for the update's lock for ever
        busy_.whenFree([self = QPointer<ExpDicDlg>(this)] {
            if (self)
                self->OKBT_Action();
        });
        return;
    }
    int first = 0;
    while (first < MainLB_->rowCount() && !isChecked(first))
        ++first;
    if (first == MainLB_->rowCount())
        return;
    constexpr std::string_view kAskForFolder = "Select a folder to put in the exported dictionaries.";
    host_.MsgBox(kAskForFolder);
    const std::filesystem::path chosen = host_.SelectFolder(kAskForFolder);
    if (chosen.empty())
        return;
    const FolderItem destination(chosen);
    MaintenanceResult result;
    {
        const Working working(*this);
        PB_->setMaximum(MainLB_->rowCount() - 1);
        for (int row = 0; row < MainLB_->rowCount(); ++row) {
            PB_->setValue(row);
            if (isChecked(row))
                result.append(mExportDic(dictionaries_[static_cast<std::size_t>(row)], destination));
            host_.Yield();
        }
        PB_->showFull();
        if (!result.failures.empty())
            host_.MsgBox(failureMessage(result));
        if (!host_.Launch(destination.path()))
            host_.MsgBox("The folder could not be opened: " + destination.path().native());
    }
    close();
}

MaintenanceResult ExpDicDlg::mExportDic(const FolderItem& dictionary, const FolderItem& destination) {
    const auto mayReplace = [this](const std::string& name) {
        return host_.askYesNo("There are already a dictionary '" + name +
                              "'in the destination folder. Do you want to delete it to continue this proces  ?") ==
               Host::Answer::Yes;
    };
    const Progress yield = [this](const WorkDone& done) {
        ST_->setText(done.waitsFor.empty() ? toQ(kCheckItems) : toQ(waitMessage(done.waitsFor)));
        host_.Yield();
    };
    return exportDictionary(dictionary, destination, mayReplace, yield);
}

void ExpDicDlg::reject() {
    if (!working_)
        QDialog::reject();
}

bool ExpDicDlg::eventFilter(QObject* watched, QEvent* event) {
    // Qt does not make a row current when its check box is clicked, but the keys must continue from there.
    if (watched == MainLB_->viewport() && event->type() == QEvent::MouseButtonPress)
        MainLB_->setCurrentIndex(MainLB_->indexAt(static_cast<QMouseEvent*>(event)->pos()));
    if (watched != MainLB_ || event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space)
        return QDialog::eventFilter(watched, event);
    if (const int row = MainLB_->currentRow(); row >= 0)
        setChecked(row, !isChecked(row));
    return true;
}

void ExpDicDlg::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    MainLB_->setColumnWidth(kCheckBox, MainLB_->viewport()->width() / 5);
}

} // namespace velmarin
