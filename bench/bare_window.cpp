// A window with a table and nothing else: what any Qt program of this kind takes to start.
#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QStandardItemModel model(20, 7);
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            model.setItem(row, column, new QStandardItem(QString::number(row * column)));
    QMainWindow window;
    auto* const table = new QTableView;
    table->setModel(&model);
    window.setCentralWidget(table);
    window.resize(1240, 640);
    window.show();
    return QApplication::exec();
}
