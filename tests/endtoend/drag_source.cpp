// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// A small window that a file can be dragged from. Writes "accepted" into the file named by the second
// argument as soon as the drag is over something that takes it. It stays until it is killed: whoever takes
// the file asks for its name only after the drag.

#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource final : public QWidget
{
public:
    explicit DragSource(const QString &dragged) : m_dragged(dragged) {}

protected:
    void mouseMoveEvent(QMouseEvent *) override
    {
        auto *drag = new QDrag(this);
        auto *file = new QMimeData;
        file->setUrls({QUrl::fromLocalFile(m_dragged)});
        drag->setMimeData(file);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            QFile log(QApplication::arguments().value(2));
            if (action == Qt::CopyAction && log.open(QIODevice::WriteOnly))
                log.write("accepted\n");
        });
        drag->exec(Qt::CopyAction);
    }

private:
    QString m_dragged;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    DragSource source(QApplication::arguments().value(1));
    source.setWindowTitle(QStringLiteral("drag source"));
    source.setGeometry(1200, 700, 120, 80);
    source.show();
    return QApplication::exec();
}
