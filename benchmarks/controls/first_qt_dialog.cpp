// What first_dialog is measured against.
#include "controls/qt_dialog.h"

int main()
{
    Bench::QtDialog().Run();
}
