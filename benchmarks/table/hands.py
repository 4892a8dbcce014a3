"""Keys, mouse and a look at the screen without a process for each: the libraries that xdotool uses."""
import ctypes
import ctypes.util
import time

CURRENT = 0  # the window that has the keyboard
ALL_PLANES, PIXMAP = 0xFFFFFFFF, 2
Pointer, Window, Number = ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int


def function(library, name, result, *arguments):
    found = getattr(library, name)
    found.restype, found.argtypes = result, arguments
    return found


class Hands:
    """Acts on a display. A key and a click return the time (time.monotonic()) right before the event that counts."""

    def __init__(self, display):
        xdo, x11 = (ctypes.CDLL(ctypes.util.find_library(name)) for name in ("xdo", "X11"))
        self.xdo = function(xdo, "xdo_new", Pointer, ctypes.c_char_p)(display.encode())
        self.send_keys = function(xdo, "xdo_send_keysequence_window", Number, Pointer, Window, ctypes.c_char_p,
                                  ctypes.c_uint)
        self.move_mouse = function(xdo, "xdo_move_mouse_relative_to_window", Number, Pointer, Window, Number, Number)
        self.mouse_down = function(xdo, "xdo_mouse_down", Number, Pointer, Window, Number)
        self.mouse_up = function(xdo, "xdo_mouse_up", Number, Pointer, Window, Number)
        self.focused = function(xdo, "xdo_get_focused_window", Number, Pointer, Pointer)
        self.owner = function(xdo, "xdo_get_pid_window", Number, Pointer, Window)
        self.display = function(x11, "XOpenDisplay", Pointer, ctypes.c_char_p)(display.encode())
        self.root = function(x11, "XDefaultRootWindow", Window, Pointer)(self.display)
        self.get_image = function(x11, "XGetImage", Pointer, Pointer, Window, Number, Number, Number, Number, Window,
                                  Number)
        self.get_pixel = function(x11, "XGetPixel", Window, Pointer, Number, Number)
        self.destroy_image = function(x11, "XDestroyImage", Number, Pointer)

    def key(self, name):
        now = time.monotonic()
        self.send_keys(self.xdo, CURRENT, name.encode(), 0)
        return now

    def move(self, window, x, y):
        self.move_mouse(self.xdo, window, x, y)

    def click(self):
        now = time.monotonic()
        self.mouse_down(self.xdo, CURRENT, 1)
        self.mouse_up(self.xdo, CURRENT, 1)
        return now

    def press(self):
        self.mouse_down(self.xdo, CURRENT, 1)

    def release(self):
        now = time.monotonic()
        self.mouse_up(self.xdo, CURRENT, 1)
        return now

    def double_click(self):
        """The second press counts."""
        self.click()
        time.sleep(0.1)
        return self.click()

    def keyboard_owner(self):
        """The process whose window has the keyboard; 0 if there is none."""
        window = Window()
        self.focused(self.xdo, ctypes.byref(window))
        return self.owner(self.xdo, window) if window.value > 1 else 0

    def pixel(self, x, y):
        image = self.get_image(self.display, self.root, x, y, 1, 1, ALL_PLANES, PIXMAP)
        color = self.get_pixel(image, 0, 0)
        self.destroy_image(image)
        return color
