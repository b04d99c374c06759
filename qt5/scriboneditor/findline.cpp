#include "findline.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int MARGIN = 4;

constexpr auto MODIFIERS =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

// A light red.
constexpr QRgb NOTHING_FOUND = 0xffffd0d0;

bool isReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

FindLine::FindLine(QWidget* parent)
    : QFrame(parent),
      m_line(new QLineEdit(this)),
      m_news(new QLabel(this)),
      m_close(new QToolButton(this)),
      m_layout(new QBoxLayout(QBoxLayout::LeftToRight, this))
{
    setObjectName(QStringLiteral("findLine"));
    setAccessibleName(tr("Find"));
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    hide();
    m_layout->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    setUpLine();
    setUpNews();
    setUpCloseButton();
    auto* const row = new QHBoxLayout;
    row->addWidget(m_news, 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    m_layout->addLayout(row, 1);
}

// ClickFocus keeps the line out of the window's tab order.
void FindLine::setUpLine()
{
    m_line->setObjectName(QStringLiteral("findText"));
    m_line->setAccessibleName(tr("Find"));
    m_line->setPlaceholderText(tr("Find"));
    m_line->setToolTip(
        tr("Return: next match\nShift+Return: previous match\n"
           "Ctrl+Return: next tab with a match\nEscape: close"));
    m_line->setFocusPolicy(Qt::ClickFocus);
    m_line->installEventFilter(this);
    connect(m_line, &QLineEdit::textChanged, this, &FindLine::textChanged);
    m_layout->addWidget(m_line);
}

void FindLine::setUpNews()
{
    m_news->setObjectName(QStringLiteral("findNews"));
    m_news->setTextFormat(Qt::PlainText);
    m_news->setWordWrap(true);
    m_news->setToolTip(m_line->toolTip());
}

void FindLine::setUpCloseButton()
{
    m_close->setObjectName(QStringLiteral("findClose"));
    m_close->setAccessibleName(tr("Close"));
    m_close->setToolTip(tr("Close (Escape)"));
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::NoFocus);
    connect(m_close, &QToolButton::clicked, this, &FindLine::closeWanted);
}

QString FindLine::text() const
{
    return m_line->text();
}

void FindLine::openOver(QAbstractItemView* table)
{
    moveOver(table);
    show();
    makeWay();
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

// While a dialog is active, hiding the line would give the focus to the tabs.
void FindLine::leave()
{
    if (isAncestorOf(window()->focusWidget()))
        m_table->setFocus();
    hide();
}

void FindLine::moveOver(QAbstractItemView* table)
{
    if (m_table != nullptr) {
        m_table->removeEventFilter(this);
        m_table->viewport()->removeEventFilter(this);
    }
    m_table = table;
    m_table->installEventFilter(this);
    m_table->viewport()->installEventFilter(this);
    takeFont();
    makeWay();
}

// Under a style sheet, widgets do not inherit a font.
void FindLine::takeFont()
{
    m_line->setFont(m_table->font());
    m_news->setFont(m_table->font());
}

void FindLine::tell(const QString& news, bool isFound)
{
    m_news->setText(news);
    m_line->setAccessibleDescription(news);
    QPalette colours;
    if (!isFound) {
        colours.setColor(QPalette::Base, QColor(NOTHING_FOUND));
        colours.setColor(QPalette::Text, Qt::black);
    }
    m_line->setPalette(colours);
    makeWay();
}

// ---- Place -------------------------------------------------------------------------------------

// The table's viewport in the parent's coordinates.
QRect FindLine::area() const
{
    const QWidget* const viewport = m_table->viewport();
    return {viewport->mapTo(parentWidget(), QPoint()), viewport->size()};
}

// Has room for the usual news, so that the line does not change its width as one types.
int FindLine::newsWidth() const
{
    const QString usual = tr("No match here, %1 on other tabs").arg(999);
    const QFontMetrics metrics = m_news->fontMetrics();
    return qMax(metrics.horizontalAdvance(usual), metrics.horizontalAdvance(m_news->text()));
}

// The news stand below the text where there is no room beside it.
QSize FindLine::sizeWithin(int width)
{
    const int frame = 2 * (MARGIN + frameWidth());
    const int line = m_line->sizeHint().width();
    const int spacing = m_layout->spacing();
    const int news = newsWidth() + spacing + m_close->sizeHint().width();
    const bool isWide = line + spacing + news + frame <= width;
    m_layout->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const int wanted = (isWide ? line + spacing + news : qMax(line, news)) + frame;
    const int taken = qMin(wanted, width);
    const bool wraps = m_layout->hasHeightForWidth();  // not without news
    return {taken, wraps ? m_layout->totalHeightForWidth(taken) : sizeHint().height()};
}

QRect FindLine::lowerPlace()
{
    const QRect within = area();
    QRect place(QPoint(), sizeWithin(within.width()));
    place.moveBottomRight(within.bottomRight());
    return place;
}

bool FindLine::covers(const QRect& cell) const
{
    return !isHidden() && geometry().intersects(cell.translated(area().topLeft()));
}

bool FindLine::wouldCover(const QRect& cell)
{
    return lowerPlace().intersects(cell.translated(area().topLeft()));
}

void FindLine::makeWay()
{
    if (isHidden())
        return;
    QRect place = lowerPlace();
    if (wouldCover(m_table->visualRect(m_table->currentIndex())))
        place.moveTop(area().top());
    setGeometry(place);
}

// ---- Events ------------------------------------------------------------------------------------

bool FindLine::event(QEvent* event)
{
    const bool isHandled = QFrame::event(event);
    if (event->type() == QEvent::LayoutRequest)
        makeWay();
    return isHandled;
}

bool FindLine::focusNextPrevChild(bool /*next*/)
{
    m_table->setFocus(Qt::TabFocusReason);
    return true;
}

bool FindLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        return !isHidden() && takesKey(watched, *static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FontChange && watched == m_table)
        takeFont();
    if (event->type() == QEvent::Resize && watched != m_line)
        makeWay();
    return false;
}

// Escape also closes the line while the table has the focus, but not the editor of a cell, whose
// keys reach the table too.
bool FindLine::takesKey(QObject* watched, const QKeyEvent& key)
{
    if (watched != QApplication::focusWidget())
        return false;
    const auto modifiers = key.modifiers() & MODIFIERS;
    if (key.key() == Qt::Key_Escape && modifiers == Qt::NoModifier) {
        Q_EMIT closeWanted();
        return true;
    }
    return watched == m_line && isReturn(key) && goesOn(modifiers);
}

bool FindLine::goesOn(Qt::KeyboardModifiers modifiers)
{
    if (modifiers == Qt::NoModifier)
        Q_EMIT nextWanted();
    else if (modifiers == Qt::ShiftModifier)
        Q_EMIT previousWanted();
    else if (modifiers == Qt::ControlModifier)
        Q_EMIT nextTabWanted();
    return true;
}
