"""A host in Python: prints turns and clicks of the dial, and ends at the first click.

It has been run over the native test build, and not yet on Windows.
"""

import ctypes
import os
import sys
import threading
import time
from ctypes import wintypes

ON_WINDOWS = os.name == "nt"
RESOURCE = "Example host"
KEY = "Example host/last brush"
ITEM = 7


# --- brindle.h ---


class DialContactRect(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int32) for name in ("left", "top", "right", "bottom")]

    def __str__(self):
        return f"contact ({self.left}, {self.top}) to ({self.right}, {self.bottom})"


class DialRotationInfo(ctypes.Structure):
    _fields_ = [("contact", DialContactRect), ("buttonPressed", ctypes.c_bool), ("deltaDegrees", ctypes.c_double),
                ("acceleration", ctypes.c_double), ("selectedItemTag", ctypes.c_uint32),
                ("hapticRequest", ctypes.POINTER(ctypes.c_uint32))]


KNOWN_ICON = 2


class MenuItemDescription(ctypes.Structure):
    """The text is UTF-16 as bytes. Each source is a text, a module or a number; here a number."""
    _fields_ = [("kind", ctypes.c_int32), ("display_text", ctypes.c_char_p), ("item_id", ctypes.c_uint32),
                ("haptic_feedback", ctypes.c_uint8), ("source", ctypes.c_uint64), ("source2", ctypes.c_uint64),
                ("source3", ctypes.c_uint64)]


class IDialHostFunctions(ctypes.Structure):
    """A function pointer of a structure keeps its Python function alive."""
    _fields_ = [
        ("OnRotation", ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_void_p, ctypes.POINTER(DialRotationInfo))),
        ("GetWindowHandle", ctypes.CFUNCTYPE(ctypes.c_uint64, ctypes.c_void_p)),
        ("OnButtonClicked", ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_void_p, ctypes.POINTER(DialContactRect))),
    ]


class IDialHost(ctypes.Structure):
    """The callback object. It keeps its table alive; keep the object until uninit."""
    _fields_ = [("functions", ctypes.POINTER(IDialHostFunctions))]


def load_brindle():
    """On Windows the DLL lies beside this file."""
    folder = os.path.dirname(os.path.abspath(__file__))
    library = ctypes.CDLL(os.path.join(folder, "brindle.dll") if ON_WINDOWS else "libbrindle.so")
    # ctypes cuts a pointer to 32 bits where its type is not declared.
    for name, result, *parameters in [
            ("initialize", ctypes.c_int32),
            ("uninit", None),
            ("init_dial_listener", ctypes.c_bool, ctypes.POINTER(IDialHost)),
            ("add_custom_menu", ctypes.c_bool, ctypes.c_uint64, ctypes.POINTER(MenuItemDescription), ctypes.c_uint32),
            ("set_current_custom_menu", ctypes.c_bool, ctypes.c_uint64, ctypes.c_uint32),
            ("set_string_in_storage", ctypes.c_int32, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p),
            ("get_string_from_storage", ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p)]:
        function = getattr(library, name)
        function.restype, function.argtypes = result, parameters
    return library


def load_free():
    """The library allocates texts with the Universal C Runtime, natively with the C library."""
    free = ctypes.CDLL("ucrtbase" if ON_WINDOWS else None).free
    free.restype, free.argtypes = None, [ctypes.c_void_p]
    return free


brindle = load_brindle()
free = load_free()


def utf16(text):
    """ctypes' own wide texts have 32-bit units on Linux."""
    return (text + "\0").encode("utf-16-le")


def take_text(address):
    """Copies a text that the library returned, and frees it."""
    if address is None:
        return None
    size = 0
    while ctypes.string_at(address + size, 2) != b"\0\0":
        size += 2
    text = ctypes.string_at(address, size).decode("utf-16-le")
    free(address)
    return text


# --- the window ---


class NativeWindow:
    """The native test build has no windows: there any number is a handle."""
    handle = 1

    def __init__(self):
        self._closed = threading.Event()

    def close(self):
        self._closed.set()

    def run_until_closed(self):
        self._closed.wait()


class SystemWindow:
    VISIBLE_OVERLAPPED_WINDOW = 0x10CF0000
    WM_CLOSE = 0x0010

    def __init__(self):
        self._user32 = ctypes.WinDLL("user32")
        self._user32.CreateWindowExW.restype = wintypes.HWND
        self._user32.CreateWindowExW.argtypes = [
            wintypes.DWORD, wintypes.LPCWSTR, wintypes.LPCWSTR, wintypes.DWORD, *[ctypes.c_int] * 4,
            wintypes.HWND, wintypes.HMENU, wintypes.HINSTANCE, wintypes.LPVOID]
        self._user32.IsWindow.argtypes = [wintypes.HWND]
        self._user32.PostMessageW.argtypes = [wintypes.HWND, wintypes.UINT, wintypes.WPARAM, wintypes.LPARAM]
        self._user32.GetMessageW.argtypes = [ctypes.POINTER(wintypes.MSG), wintypes.HWND, wintypes.UINT, wintypes.UINT]
        self._user32.DispatchMessageW.argtypes = [ctypes.POINTER(wintypes.MSG)]
        self.handle = self._user32.CreateWindowExW(0, "STATIC", "Host in Python", self.VISIBLE_OVERLAPPED_WINDOW, 100,
                                                   100, 400, 300, None, None, None, None)

    def close(self):
        """May be called on any thread."""
        self._user32.PostMessageW(self.handle, self.WM_CLOSE, 0, 0)

    def run_until_closed(self):
        message = wintypes.MSG()
        while self._user32.IsWindow(self.handle) and self._user32.GetMessageW(ctypes.byref(message), None, 0, 0) > 0:
            self._user32.DispatchMessageW(ctypes.byref(message))


# --- the host ---


def make_host(window):
    def on_rotation(_self, _sender, info):
        turn = info.contents
        print(f"turn: {turn.deltaDegrees:.1f} degrees, factor {turn.acceleration:.2f}, "
              f"button {'down' if turn.buttonPressed else 'up'}, item {turn.selectedItemTag}, {turn.contact}", flush=True)

    def get_window_handle(_self):
        return window.handle

    def on_button_clicked(_self, _sender, rect):
        print(f"click: {rect.contents}", flush=True)
        window.close()

    types = [kind for _, kind in IDialHostFunctions._fields_]
    callbacks = (on_rotation, get_window_handle, on_button_clicked)
    table = IDialHostFunctions(*[kind(callback) for kind, callback in zip(types, callbacks)])
    return IDialHost(ctypes.pointer(table))


def fill_menu(window):
    volume_icon = 3
    item = MenuItemDescription(KNOWN_ICON, utf16("Volume"), ITEM, 0, volume_icon)
    brindle.add_custom_menu(window.handle, ctypes.byref(item), 1)
    brindle.set_current_custom_menu(window.handle, ITEM)


def main():
    sys.stdout.reconfigure(encoding="utf-8")
    window = SystemWindow() if ON_WINDOWS else NativeWindow()
    if not window.handle or brindle.initialize() == 1:
        print("no window, or no Windows Runtime", file=sys.stderr)
        return 1
    brindle.set_string_in_storage(utf16(RESOURCE), utf16(KEY), utf16("Größe 7 €"))
    text = take_text(brindle.get_string_from_storage(utf16(RESOURCE), utf16(KEY)))
    print(f"setting: {'absent' if text is None else text}", flush=True)
    host = make_host(window)  # a variable of this function lives until uninit
    if brindle.init_dial_listener(ctypes.byref(host)):
        fill_menu(window)
        window.run_until_closed()
    time.sleep(0.3)  # a callback may still run on another thread
    brindle.uninit()
    print("end")
    return 0


if __name__ == "__main__":
    sys.exit(main())
