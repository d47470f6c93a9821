// The stand-in simulator as a Windows program, the test double of the real one: a
// top-level window registered under the simulator's first class name. It reads
// recent_pool_version_4.aqp from its current folder, evolves it with the same toy
// model as the Linux stand-in, draws it, and on WM_CLOSE writes the pool back
// (temporary file and rename) before the window goes. AQUARIUM_STANDIN_NEVER_READY
// makes it hang before it has a window.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "HandOver.h"
#include "ToyModel.h"
#include "format/WindowClasses.h"

namespace {

aq::Pool gPool;
standin::ToyModel* gModel = nullptr;
int gStatus = 0;

const COLORREF kSegmentColors[] = {RGB(220, 40, 40), RGB(240, 140, 20), RGB(230, 220, 40),
                                   RGB(40, 180, 60), RGB(50, 90, 230),  RGB(150, 60, 200)};

// Pool coordinates (y up) to the client area, with the pool's edges filling it.
struct View {
    double x0, y1, scale;
    POINT at(double x, double y) const {
        return {static_cast<LONG>((x - x0) * scale), static_cast<LONG>((y1 - y) * scale)};
    }
};

View viewOf(const RECT& client) {
    double x0 = gPool.minX, x1 = gPool.maxX, y0 = gPool.minY, y1 = gPool.maxY;
    if (!(x1 > x0) || !(y1 > y0)) x0 = y0 = -500, x1 = y1 = 500;
    double scale = std::min((client.right - client.left) / (x1 - x0), (client.bottom - client.top) / (y1 - y0));
    return {x0, y1, scale};
}

void paint(HWND window) {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(window, &ps);
    RECT client;
    GetClientRect(window, &client);
    HBRUSH background = CreateSolidBrush(RGB(10, 20, 40));
    FillRect(dc, &client, background);
    DeleteObject(background);
    View v = viewOf(client);
    SelectObject(dc, GetStockObject(NULL_PEN));
    HBRUSH food = CreateSolidBrush(RGB(90, 200, 90));
    SelectObject(dc, food);
    for (int j = 0; j < gPool.foodCount; ++j) {
        POINT p = v.at(gPool.food[static_cast<std::size_t>(j)].x, gPool.food[static_cast<std::size_t>(j)].y);
        Ellipse(dc, p.x - 2, p.y - 2, p.x + 2, p.y + 2);
    }
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    DeleteObject(food);
    for (int i = 0; i < gPool.drifterCount; ++i) {
        const aq::DrifterRec& d = gPool.drifters[static_cast<std::size_t>(i)];
        int segments = std::clamp(d.segmentCount, 0, aq::kSegmentSlots);
        for (int s = 0; s < segments; ++s) {
            const aq::Segment& g = d.segments[s];
            COLORREF c = d.alive ? kSegmentColors[std::clamp(g.color, 0, 5)] : RGB(60, 60, 60);
            HBRUSH brush = CreateSolidBrush(c);
            HGDIOBJ old = SelectObject(dc, brush);
            POINT quad[4] = {v.at(g.point1X, g.point1Y), v.at(g.point2X, g.point2Y), v.at(g.point3X, g.point3Y),
                             v.at(g.point4X, g.point4Y)};
            Polygon(dc, quad, 4);
            SelectObject(dc, old);
            DeleteObject(brush);
        }
    }
    EndPaint(window, &ps);
}

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
            gModel->step();
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_PAINT:
            paint(window);
            return 0;
        case WM_CLOSE:
            // Closing is saving, as with the real simulator; the sender waits for it.
            KillTimer(window, 1);
            gStatus = standin::saveHandOver(gPool);
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(gStatus);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    // A simulator stuck while it starts, which never opens its window.
    if (const char* n = std::getenv("AQUARIUM_STANDIN_NEVER_READY"); n && *n && std::string(n) != "0") Sleep(INFINITE);
    if (!standin::loadHandOver(gPool)) return 1;
    standin::ToyModel model(gPool);
    gModel = &model;
    int stepsPerSecond = 30;
    if (const char* s = std::getenv("AQUARIUM_STANDIN_STEPS")) stepsPerSecond = std::clamp(std::atoi(s), 1, 1000);

    const std::string& className = aq::simulatorWindowClasses()[0];
    WNDCLASSA wc{};
    wc.lpfnWndProc = windowProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.lpszClassName = className.c_str();
    if (!RegisterClassA(&wc)) return 1;
    HWND window = CreateWindowA(className.c_str(), "Aquarium version 4 (stand-in)", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, 800, 800, nullptr, nullptr, instance, nullptr);
    if (!window) return 1;
    ShowWindow(window, show);
    SetTimer(window, 1, static_cast<UINT>(std::max(1, 1000 / stepsPerSecond)), nullptr);
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return gStatus;
}
