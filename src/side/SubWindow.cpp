#include "side/SubWindow.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/DevicePixels.h"
#include "controls/FittedText.h"
#include "controls/PopupMenu.h"
#include "controls/TextStyleBevelButton.h"
#include "platform/QtText.h"
#include "side/ColorRect.h"
#include "side/MainWindowPort.h"
#include "side/SourceTable.h"
#include "side/TextArea.h"
#include "side/WaitNotice.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QColorDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>

#include <utility>

namespace velmarin {

namespace {

constexpr QSize kDesignSize(352, 705);
constexpr QSize kMinimumSize(350, 64);
constexpr int kMaximumSide = 32000;
constexpr std::chrono::milliseconds kAfterTheClick{60};

FindBar::SelectColor selectColorOrDialog(FindBar::SelectColor given, QWidget* parent) {
    if (given)
        return given;
    return [parent](const QColor& present) -> std::optional<QColor> {
        const QColor selected = QColorDialog::getColor(present, parent);
        return selected.isValid() ? std::optional(selected) : std::nullopt;
    };
}

Qt::WindowFlags flagsFor(Attachment attachment) {
    return attachment == Attachment::Window ? Qt::Tool | Qt::FramelessWindowHint : Qt::Widget;
}

} // namespace

SubWindow::SubWindow(MainWindowPort& mainWindow, SideServices services, Attachment attachment,
                     FindBar::SelectColor selectColor)
    : QWidget(mainWindow.window(), flagsFor(attachment)), MainWin_(mainWindow),
      layout_(new AnchoredLayout(this, kDesignSize)), text_(this, *layout_),
      findBar_(selectColorOrDialog(std::move(selectColor), this), this, *layout_), switches_(this, *layout_),
      notice_(new WaitNotice(text_.EF)), model_(*this, *text_.EF, mainWindow, std::move(services)),
      widthAtOpening_(kDesignSize.width()) {
    setObjectName(QStringLiteral("SubWindow"));
    setAccessibleName(QStringLiteral("Side window"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(kMinimumSize);
    setMaximumSize(kMaximumSide, kMaximumSide);
    resize(kDesignSize);
    attachment_ = new SideAttachment(attachment, this, mainWindow.window(), kMinimumSize.width(), kMaximumSide);
    goBack_.setObjectName(QStringLiteral("goBack"));
    goBack_.setSingleShot(true);
    goBack_.setInterval(kAfterTheClick);
    connectFindBar();
    connectControls();
}

SubWindow::~SubWindow() {
    // The controls emit signals as they are destroyed, when the model no longer exists.
    for (QObject* control : findChildren<QObject*>())
        control->disconnect(this);
    findBar_.disconnect(this);
    delete attachment_;
}

void SubWindow::connectFindBar() {
    showHitColor(model_.hitColor());
    connect(&findBar_, &FindBar::findRequested, this, [this] { model_.FindBV_Action(); });
    connect(&findBar_, &FindBar::wordChanged, this,
            [this](const QString& word) { model_.FindEF_TextChange(fromQ(word)); });
    connect(&findBar_, &FindBar::clearRequested, this, [this] { model_.FindClBV_Action(); });
    connect(&findBar_, &FindBar::colorSelected, this, [this](const QColor& color) {
        model_.setHitColor({static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                            static_cast<std::uint8_t>(color.blue())});
    });
    connect(&findBar_, &FindBar::leaveRequested, this, [this] { MainWin_.focusSearch(true); });
    connect(&findBar_, &FindBar::focusChanged, this, [this](bool hasFocus) { MainWin_.setOKBTDefault(!hasFocus); });
}

void SubWindow::connectControls() {
    const auto takeFontRow = [this] { model_.setFontRow(text_.BVfonts->MenuValue()); };
    const auto takeSizeRow = [this] { model_.setSizeRow(text_.BVsize->MenuValue()); };
    takeFontRow();
    takeSizeRow();
    connect(text_.BVfonts, &TextFontBevelButton::Action, this, takeFontRow);
    connect(text_.BVsize, &TextSizeBevelButton::Action, this, takeSizeRow);

    connect(switches_.SyncronizeCB, &QCheckBox::clicked, this, [this](bool on) { model_.setSyncronizeCB(on); });
    connect(switches_.DontClearCB, &QCheckBox::clicked, this, [this](bool on) { model_.setDontClearCB(on); });
    for (std::size_t row = 0; row < switches_.sources.size(); ++row)
        connect(switches_.sources[row], &QCheckBox::clicked, this, [this, row](bool on) { model_.setSource(row, on); });
    connect(switches_.sources[sourceRow("UserDicCB")], &QCheckBox::clicked, switches_.UserDicPU, &QWidget::setEnabled);
    connect(switches_.UserDicBT, &BevelButton::clicked, this, [this] { model_.UserDicBT_Action(); });
    connect(switches_.UserDicPU, &PopupMenu::aboutToChoose, this, [this] { model_.mMakeUserDicPU(); });
    connect(switches_.UserDicPU, &PopupMenu::Change, this,
            [this] { model_.setUserDictionary(switches_.UserDicPU->ListIndex()); });

    connect(notice_, &WaitNotice::stopRequested, this, [this] { model_.stopWaiting(); });
    connect(attachment_, &SideAttachment::mainWindowClosed, this, &SubWindow::shut);
    connect(&goBack_, &QTimer::timeout, this, &SubWindow::goBackToMainWindow);
}

void SubWindow::open() {
    model_.open();
    if (!model_.shut())
        attachment_->show(widthAtOpening_);
}

void SubWindow::shut() {
    if (model_.shut())
        return;
    model_.close(attachment_->width());
    delete attachment_;
    hide();
    emit closed();
}

void SubWindow::release() {
    deleteLater();
}

void SubWindow::synchronise(const QString& query) {
    model_.synchronise(fromQ(query));
}

void SubWindow::takeTarget(FindTarget target) {
    takeFocusToFindEF();
    if (target == FindTarget::Find)
        findBar_.FindEF()->selectAll();
    model_.setTarget(target);
}

void SubWindow::takeFocusToFindEF() {
    if (attachment() == Attachment::Window && !isActiveWindow()) {
        expectsFocus_ = true;
        activateWindow();
    }
    findBar_.FindEF()->setFocus();
}

void SubWindow::showSettings(const SubwindowSettings& settings) {
    widthAtOpening_ = settings.width;
    text_.BVfonts->setMenuValue(settings.fontRow);
    text_.BVsize->setMenuValue(settings.sizeRow);
    for (std::size_t row = 0; row < settings.sourcesOn.size(); ++row)
        showSource(row, settings.sourcesOn[row]);
    switches_.SyncronizeCB->setChecked(settings.SyncronizeCB);
    switches_.DontClearCB->setChecked(settings.DontClearCB);
    switches_.UserDicPU->setEnabled(settings.sourcesOn[sourceRow("UserDicCB")]);
}

void SubWindow::applyTextStyle() {
    text_.BVfonts->ApplySelection();
    text_.BVsize->ApplySelection();
}

void SubWindow::showSource(std::size_t row, bool isOn) {
    switches_.sources[row]->setChecked(isOn);
}

void SubWindow::showTarget(FindTarget target) {
    findBar_.showTarget(target);
}

void SubWindow::showWord(const std::string& word) {
    findBar_.showWord(toQ(word));
}

void SubWindow::showMiss(bool missed) {
    findBar_.showMiss(missed);
}

void SubWindow::showHitColor(TextColor color) {
    findBar_.FindColorRect()->setFillColor(QColor(color.red, color.green, color.blue));
}

void SubWindow::clearUserDictionaries() {
    switches_.UserDicPU->DeleteAllRows();
}

void SubWindow::addUserDictionary(const std::string& name) {
    switches_.UserDicPU->AddRow(name);
}

void SubWindow::chooseUserDictionary(int row) {
    switches_.UserDicPU->setListIndexQuietly(row);
}

void SubWindow::showWait(const std::string& program) {
    notice_->showAbout(
        QStringLiteral("Waiting for %1, and searches wait too. Press Stop to go on without it.").arg(toQ(program)));
}

void SubWindow::hideWait() {
    notice_->hide();
}

void SubWindow::Event_Activate() {
    if (std::exchange(expectsFocus_, false))
        return;
    // A click on a control that takes the focus or opens a menu does what it does anywhere.
    QWidget* under = childAt(mapFromGlobal(QCursor::pos()));
    for (; under != nullptr && under != this; under = under->parentWidget())
        if (under->isEnabled() && under->focusPolicy() != Qt::NoFocus && qobject_cast<QCheckBox*>(under) == nullptr)
            return;
    goBack_.start();
}

void SubWindow::goBackToMainWindow() {
    if (isActiveWindow() && !model_.shut())
        MainWin_.focusSearch(false);
}

void SubWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isWindow() || model_.shut())
        return;
    if (isActiveWindow())
        Event_Activate();
    else
        goBack_.stop();
}

void SubWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    shut();
}

void SubWindow::paintEvent(QPaintEvent*) {
    if (!isWindow())
        return;
    // The desktop gives this window no frame, so it draws a thin one.
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect all = device.rect(rect());
    const int line = device.length(1);
    const QColor color = palette().color(QPalette::Window).darker(160);
    painter.fillRect(QRect(all.topLeft(), QSize(all.width(), line)), color);
    painter.fillRect(QRect(all.x(), all.bottom() + 1 - line, all.width(), line), color);
    painter.fillRect(QRect(all.topLeft(), QSize(line, all.height())), color);
    painter.fillRect(QRect(all.right() + 1 - line, all.y(), line, all.height()), color);
}

} // namespace velmarin
