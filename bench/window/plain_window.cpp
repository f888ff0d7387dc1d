// The least that a program of the toolkit can be: what the start of the program's own window is compared with.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QLabel label("A plain window of the toolkit, with nothing but this line of text");
  label.setWindowTitle("plain");
  label.resize(1000, 600);
  label.show();
  return QApplication::exec();
}
