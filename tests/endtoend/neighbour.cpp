// Another program on the display, as a spreadsheet or a file manager is for the editor:
//
//   neighbour copy FILE      has the text of the file on the clipboard until it is ended
//   neighbour paste          writes the text of the clipboard to standard output
//   neighbour drag URL...    a field at the left upper corner of the screen, to drag the addresses
//   from neighbour drag-text TEXT the same for a text
//
// It tells on standard output, a word a line, when it is ready and which action the program below
// the pointer takes: "none" or "copy".

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QFile>
#include <QMimeData>
#include <QTextStream>
#include <QUrl>
#include <QWidget>
#include <functional>

namespace {

constexpr int FIELD_SIZE = 40;

void tell(const QString& word)
{
    QTextStream(stdout) << word << Qt::endl;
}

// A spreadsheet offers the cells in several formats.
void copy(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the file");
    const QString text = QString::fromUtf8(file.readAll());
    auto* const data = new QMimeData;
    data->setText(text);
    data->setHtml(QStringLiteral("<table><tr><td>") + text.toHtmlEscaped() +
                  QStringLiteral("</td></tr></table>"));
    QApplication::clipboard()->setMimeData(data);
    tell(QStringLiteral("ready"));
}

class Field : public QWidget {
public:
    using Data = std::function<QMimeData*()>;

    explicit Field(const Data& offered) : m_offered(offered)
    {
        setWindowFlags(Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint);
        setGeometry(0, 0, FIELD_SIZE, FIELD_SIZE);
    }

protected:
    void showEvent(QShowEvent* /*event*/) override { tell(QStringLiteral("ready")); }

    void mousePressEvent(QMouseEvent* /*event*/) override
    {
        auto* const drag = new QDrag(this);
        drag->setMimeData(m_offered());
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            tell(action == Qt::CopyAction ? QStringLiteral("copy") : QStringLiteral("none"));
        });
        drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
        tell(QStringLiteral("ended"));
    }

private:
    Data m_offered;
};

QMimeData* addresses(const QStringList& arguments)
{
    auto* const data = new QMimeData;
    QList<QUrl> urls;
    for (const QString& argument : arguments)
        urls.append(QUrl(argument));
    data->setUrls(urls);
    return data;
}

QMimeData* plainText(const QStringList& arguments)
{
    auto* const data = new QMimeData;
    data->setText(arguments.join(QLatin1Char(' ')));
    return data;
}

int runField(const Field::Data& data)
{
    Field field(data);
    field.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    const QString task = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (task == QLatin1String("drag"))
        return runField([&] { return addresses(arguments); });
    if (task == QLatin1String("drag-text"))
        return runField([&] { return plainText(arguments); });
    if (task == QLatin1String("paste")) {
        QTextStream(stdout) << QApplication::clipboard()->text();
        return 0;
    }
    copy(arguments.value(0));
    return QApplication::exec();
}
