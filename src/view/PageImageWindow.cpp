#include "view/PageImageWindow.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "files/LineReader.h"
#include "files/ReadOnlyFile.h"
#include "platform/QtText.h"
#include "store/FileNames.h"
#include "text/LetterCase.h"
#include "text/NilObjectException.h"
#include "text/NumberText.h"
#include "view/Decoders.h"
#include "view/SmartCanvas.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace velmarin {

namespace {

constexpr int kMaxWindowSide = 32000;
constexpr std::uint64_t kMaxPreferencesSize = 1U << 16;

std::string formatPreferences(const QPoint& place, const std::string& ratio) {
    return Str(place.x()) + '\n' + Str(place.y()) + '\n' + ratio + '\n';
}

/// A line of the preferences as a screen coordinate, limited to the 16 bits of window systems.
int coordinate(std::string_view line) {
    constexpr int lowest = std::numeric_limits<std::int16_t>::min(), highest = std::numeric_limits<std::int16_t>::max();
    return std::clamp(toInt32(CDbl(line)), lowest, highest);
}

} // namespace

PageImageWindow::PageImageWindow(Host& host, FolderItem preferencesFolder, PageImageWindowEvents events,
                                 QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      host_(host), preferencesFolder_(std::move(preferencesFolder)), events_(std::move(events)),
      layout_(new AnchoredLayout(this, QSize(kWidth, kHeight))) {
    setObjectName(QStringLiteral("PageImageWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(kWidth, kHeight);
    setMaximumSize(kMaxWindowSide, kMaxWindowSide);
    // The layout is in pixels; text of any other size would be cut off.
    QFont font = this->font();
    font.setPixelSize(12);
    setFont(font);
    makeControls();
    connectControls();
    takeSize({kWidth, kHeight});
    Event_Open();
}

PageImageWindow::~PageImageWindow() = default;

void PageImageWindow::makeControls() {
    // In the order of the Tab key.
    ImagePU_ = addBevelButton("ImagePU", QRect(13, 3, 163, 22), "Images");
    ImagePU_->setToolTip(QStringLiteral("The images of this folder"));
    ImagePU_->setHasMenu(true);

    RatioEF_ = new QLineEdit(QStringLiteral("100"), this);
    RatioEF_->setObjectName(QStringLiteral("RatioEF"));
    RatioEF_->setAccessibleName(QStringLiteral("Ratio in percent"));
    RatioEF_->setToolTip(QStringLiteral("Size of the page in percent (Return)"));
    RatioEF_->setAlignment(Qt::AlignRight);
    RatioEF_->setMaxLength(3);
    RatioEF_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,3}")), RatioEF_));
    layout_->add(RatioEF_, QRect(181, 3, 34, 22), Anchor::Left | Anchor::Top);

    RatioPU_ = addBevelButton("RatioPU", QRect(216, 3, 54, 22), "Ratio");
    RatioPU_->setToolTip(QStringLiteral("Size of the page"));
    RatioPU_->setRows({"10%", "20%", "25%", "30%", "40%", "50%", "60%", "70%", "75%", "80%", "90%", "100%"});

    makeStepButtons();

    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setObjectName(QStringLiteral("PushButton1"));
    close->setToolTip(QStringLiteral("Close this window (Escape)"));
    close->setFocusPolicy(Qt::TabFocus);
    close->setAutoDefault(true); // so that Return presses it while it has the focus
    layout_->add(close, QRect(513, 5, 54, 20), Anchor::Left | Anchor::Top);
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    MainCanvas_ = new SmartCanvas(host_, this);
    MainCanvas_->setObjectName(QStringLiteral("MainCanvas"));
    layout_->add(MainCanvas_, QRect(13, 33, 554, 347), Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);

    InfoST_ = new QLabel(this);
    InfoST_->setObjectName(QStringLiteral("InfoST"));
    InfoST_->setTextFormat(Qt::PlainText);
    InfoST_->setStyleSheet(QStringLiteral("QLabel { color: #ff0080 }"));
    layout_->add(InfoST_, QRect(13, 380, 547, 20), Anchor::Left | Anchor::Right | Anchor::Bottom);
}

BevelButton* PageImageWindow::addBevelButton(const char* name, const QRect& rect, const char* caption) {
    auto* button = new BevelButton(caption, this);
    button->setObjectName(QString::fromUtf8(name));
    layout_->add(button, rect, Anchor::Left | Anchor::Top);
    return button;
}

void PageImageWindow::makeStepButtons() {
    auto* label = new QLabel(QStringLiteral("MainWindow"), this);
    label->setObjectName(QStringLiteral("Label1"));
    layout_->add(label, QRect(281, 6, 82, 20), Anchor::Left | Anchor::Top);

    struct Plan {
        const char* name;
        QRect rect;
        const char* caption;
        const char* toolTip;
        void (PageImageWindow::*action)(int index);
        int index;
    };
    const Plan plans[] = {
        {"MainWinPage.0",
         {366, 3, 36, 22},
         "Back",
         "Previous page in the main window",
         &PageImageWindow::MainWinPage_Action,
         0},
        {"MainWinPage.1",
         {402, 3, 36, 22},
         "Next",
         "Next page in the main window",
         &PageImageWindow::MainWinPage_Action,
         1},
        {"UpDown.0", {439, 3, 27, 22}, "Up", "One screenful up in the main window", &PageImageWindow::UpDown_Action, 0},
        {"UpDown.1",
         {468, 3, 43, 22},
         "Down",
         "One screenful down in the main window",
         &PageImageWindow::UpDown_Action,
         1},
    };
    for (const Plan& plan : plans) {
        BevelButton* button = addBevelButton(plan.name, plan.rect, plan.caption);
        button->setToolTip(QString::fromUtf8(plan.toolTip));
        connect(button, &BevelButton::clicked, this,
                [this, action = plan.action, index = plan.index] { (this->*action)(index); });
    }
}

void PageImageWindow::connectControls() {
    connect(ImagePU_, &BevelButton::rowChosen, this, &PageImageWindow::ImagePU_Action);
    connect(RatioPU_, &BevelButton::rowChosen, this, &PageImageWindow::RatioPU_Action);
    connect(RatioEF_, &QLineEdit::returnPressed, this, [this] { showAtRatio(ratioOfText(fromQ(RatioEF_->text()))); });
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
}

void PageImageWindow::Event_Open() {
    const FolderItem file = preferencesFolder_.Child("PageImageW_Pref.txt");
    if (const auto text = readWholeFile(file, kMaxPreferencesSize)) {
        LineReader lines(*text);
        const int left = coordinate(lines.ReadLine());
        const int top = coordinate(lines.ReadLine());
        move(left, top);
        RatioEF_->setText(toQ(lines.ReadLine()));
    }
    if (events_.opened)
        events_.opened();
}

void PageImageWindow::Event_Close() {
    if (std::exchange(closed_, true))
        return;
    const std::string path = preferencesFolder_.Child("PageImageW_Pref.txt").path().string();
    const Result result = writeFileAtomically(path, formatPreferences(pos(), fromQ(RatioEF_->text())));
    // A message lets events run, which must not reach this window.
    hide();
    if (events_.closed)
        events_.closed();
    if (events_.saved)
        events_.saved(path, result);
}

void PageImageWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    Event_Close();
}

void PageImageWindow::setMainWin(std::weak_ptr<PagePort> MainWin, int MainWinTab) {
    MainWin_ = std::move(MainWin);
    MainWinTab_ = MainWinTab;
    mainWinWasSet_ = true;
}

void PageImageWindow::mSetImage(const FolderItem& f) {
    if (f.isNil())
        return;
    pImagePUArray_.clear();
    if (f.Directory())
        showFolder(f);
    else
        showFile(f);
}

void PageImageWindow::showFolder(const FolderItem& f) {
    pParFol_ = f;
    setTitle(f.Name());
    for (const FolderItem& item : f.items())
        if (item.Visible())
            pImagePUArray_.push_back(item.Name());
    ImagePU_->setRows(pImagePUArray_);
    ImagePU_->setEnabled(true);
    if (pImagePUArray_.empty()) {
        close();
        return;
    }
    ImagePU_->setMenuValue(0);
    mOpenAsPicture(pParFol_.Child(pImagePUArray_.front()));
    ImagePU_->setCaption(Str(static_cast<std::int64_t>(pImagePUArray_.size())) + " image(s) exist(s)");
}

void PageImageWindow::showFile(const FolderItem& f) {
    if (!pPuSelected_) {
        pParFol_ = FolderItem();
        ImagePU_->DeleteAllRows();
        ImagePU_->setEnabled(false);
        setTitle(f.Name());
    }
    if (mOpenAsPicture(f))
        return;
    const QPointer<PageImageWindow> self(this);
    host_.MsgBox("Error:This is not a picture file.");
    if (!self.isNull())
        ImagePU_->RemoveRow(ImagePU_->MenuValue());
}

bool PageImageWindow::mOpenAsPicture(const FolderItem& f) {
    if (f.isNil() || !f.Exists())
        return false;
    const std::string extension = mFiMod_GetExtensionFromFileName(f.Name());
    const bool tiff = equalStrings(extension, "tif") || equalStrings(extension, "tiff");
    DecodedPicture decoded = tiff ? decodeTiffFile(f) : decodePicture(f);
    MainCanvas_->describePage({}, f.Name(), decoded.reason);
    Picture picture = std::move(decoded.picture);
    if (!picture)
        return false;
    const double ratio = ratioOfText(fromQ(RatioEF_->text()));
    pCurrentImageSize_ = {picture.Width(), picture.Height()};
    takeSize(windowForPicture(ratio, pCurrentImageSize_, minimumWidth()));
    MainCanvas_->SetPicture(std::move(picture));
    return true;
}

void PageImageWindow::ImagePU_Action() {
    const QPointer<PageImageWindow> self(this);
    pPuSelected_ = true;
    const FolderItem picked = pParFol_.Child(ImagePU_->List(ImagePU_->MenuValue()));
    try {
        mSetImage(picked);
    } catch (...) {
        pPuSelected_ = false;
        throw;
    }
    if (!self.isNull())
        pPuSelected_ = false;
}

void PageImageWindow::RatioPU_Action() {
    const int percent = toInt32(CDbl(RatioPU_->List(RatioPU_->MenuValue())));
    RatioEF_->setText(toQ(Str(percent)));
    showAtRatio(ratioOfText(Str(percent)));
}

void PageImageWindow::showAtRatio(double ratio) {
    const int screenWidth = QGuiApplication::primaryScreen()->size().width();
    const ChosenRatio chosen = windowForRatio(ratio, pCurrentImageSize_, screenWidth, minimumWidth());
    InfoST_->setText(toQ(chosen.info));
    takeSize(chosen.window);
    MainCanvas_->Refresh();
}

void PageImageWindow::takeSize(const Extent& wanted) {
    resize(wanted.width, wanted.height);
    layout_->apply(); // places the controls of a hidden window too
}

void PageImageWindow::setTitle(const std::string& title) {
    // Qt takes "[*]" in a title for the mark of an unsaved file.
    setWindowTitle(toQ(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

std::shared_ptr<PagePort> PageImageWindow::steppedPages() const {
    if (!mainWinWasSet_)
        throw NilObjectException("No main window has opened this window, so there are no pages to step.");
    std::shared_ptr<PagePort> pages = MainWin_.lock();
    return pages && pages->hasTab(MainWinTab_) ? pages : nullptr;
}

void PageImageWindow::MainWinPage_Action(int index) {
    if (const std::shared_ptr<PagePort> pages = steppedPages())
        pages->mNextBack(index, MainWinTab_);
}

void PageImageWindow::UpDown_Action(int index) {
    if (const std::shared_ptr<PagePort> pages = steppedPages())
        pages->mUpDown(index, MainWinTab_);
}

} // namespace velmarin
