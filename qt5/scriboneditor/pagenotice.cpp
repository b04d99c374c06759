#include "pagenotice.h"

#include <QEvent>
#include <QFontMetrics>
#include <QTabWidget>

namespace {

constexpr int PADDING = 12;
constexpr QColor GREY(0x60, 0x60, 0x60);
constexpr int LEAST_MARGIN = 10;  // between the notice and the edges of the page

// The first word that is not in a comment.
QByteArray firstWord(const QByteArray& text)
{
    for (int start = 0; start < text.size();) {
        const int end = text.indexOf('\n', start);
        const int next = end < 0 ? text.size() : end;
        const QByteArray line = text.mid(start, next - start).simplified();
        if (!line.isEmpty() && line.at(0) != '#')
            return line.mid(0, line.indexOf(' '));
        start = next + 1;
    }
    return {};
}

}  // namespace

// A line that the parser cannot place may keep it from finding the first statement.
QString reasonOfRefusal(const QByteArray& text)
{
    return firstWord(text) == "@SCRIBON"
               ? PageNotice::tr("It begins with @SCRIBON, but has a line that cannot be read.")
               : PageNotice::tr("Its first statement is not @SCRIBON.");
}

PageNotice::PageNotice(QTabWidget* tabs) : QLabel(tabs), m_tabs(tabs)
{
    setObjectName(QStringLiteral("pageNotice"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setMargin(PADDING);
    setFrameStyle(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    QPalette grey = palette();
    grey.setColor(QPalette::Text, GREY);
    setPalette(grey);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    for (int tab = 0; tab < tabs->count(); ++tab)
        tabs->widget(tab)->installEventFilter(this);
}

void PageNotice::tell(const QString& title, const QString& reason)
{
    m_title = title;
    m_reason = reason;
    place();
    show();
    raise();
}

bool PageNotice::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        place();
    return QLabel::eventFilter(object, event);
}

void PageNotice::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        place();
}

// A name is cut in the middle, since it has no blanks to break the line at.
QStringList PageNotice::lines(int width) const
{
    QStringList all{fontMetrics().elidedText(m_title, Qt::ElideMiddle, width), m_reason,
                    tr("Ctrl+O opens a spec file, Ctrl+N starts a new one")};
    all.removeAll(QString());
    return all;
}

// As wide as its longest line, if the page is.
void PageNotice::place()
{
    const QWidget* const page = m_tabs->currentWidget();
    const QRect area(page->mapTo(m_tabs, QPoint()), page->size());
    const int border = 2 * (margin() + frameWidth());
    const int room = area.width() - 2 * LEAST_MARGIN - border;
    int width = 0;
    const QStringList all = lines(room);
    for (const QString& line : all)
        width = qMax(width, fontMetrics().horizontalAdvance(line) + 1);
    setText(all.join(QLatin1Char('\n')));
    width = qMin(width, room) + border;
    QRect own(0, 0, width, heightForWidth(width));
    own.moveCenter(area.center());
    setGeometry(own);
}
