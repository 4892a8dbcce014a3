// The smallest program of this toolkit that shows a tree and a table. The peer of the program's
// start.

#include <QApplication>
#include <QMainWindow>
#include <QSplitter>
#include <QTableView>
#include <QTreeView>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    auto *splitter = new QSplitter(&window);
    splitter->addWidget(new QTreeView);
    splitter->addWidget(new QTableView);
    window.setCentralWidget(splitter);
    window.resize(1120, 720);
    window.show();
    return QApplication::exec();
}
