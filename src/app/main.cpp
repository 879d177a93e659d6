// The entry of the program.
#include <windows.h>

#include "app/ferry_app.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    ferry::app::CFerryApp app;
    return app.Run();
}
