//! A host in Rust for Windows: prints turns and clicks of the dial, and closes its window at the first click.

use std::ffi::{c_void, CStr};
use std::os::raw::c_char;
use std::ptr::null_mut;

const RESOURCE: &str = "Example host";
const KEY: &str = "Example host/last brush";
const ITEM: u32 = 7;

// --- brindle.h ---

#[repr(C)]
struct DialContactRect {
    left: i32,
    top: i32,
    right: i32,
    bottom: i32,
}

#[repr(C)]
struct DialRotationInfo {
    contact: DialContactRect,
    button_pressed: bool,
    delta_degrees: f64,
    acceleration: f64,
    selected_item_tag: u32,
    haptic_request: *const u32,
}

const KNOWN_ICON: i32 = 2;

// Each source is a text, a module or a number; here a number.
#[repr(C)]
struct MenuItemDescription {
    kind: i32,
    display_text: *const u16,
    item_id: u32,
    haptic_feedback: u8,
    source: u64,
    source2: u64,
    source3: u64,
}

#[repr(C)]
struct IDialHostFunctions {
    on_rotation: extern "C" fn(*mut IDialHost, *mut c_void, *mut DialRotationInfo),
    get_window_handle: extern "C" fn(*mut IDialHost) -> u64,
    on_button_clicked: extern "C" fn(*mut IDialHost, *mut c_void, *const DialContactRect),
}

#[repr(C)]
struct IDialHost {
    functions: *const IDialHostFunctions,
}

#[link(name = "brindle")]
extern "C" {
    fn initialize() -> i32;
    fn uninit();
    fn init_dial_listener(host: *mut IDialHost) -> bool;
    fn add_custom_menu(window: u64, items: *const MenuItemDescription, count: u32) -> bool;
    fn set_current_custom_menu(window: u64, item_id: u32) -> bool;
    fn set_string_in_storage(resource: *const u16, key: *const u16, value: *const u16) -> i32;
    fn get_string_from_storage(resource: *const u16, key: *const u16) -> *mut u16;
}

// --- the system ---

type Window = *mut c_void;

const WM_CLOSE: u32 = 0x0010;
const WS_VISIBLE_OVERLAPPEDWINDOW: u32 = 0x10CF_0000;

#[repr(C)]
struct Message {
    window: Window,
    message: u32,
    wide: usize,
    extra: isize,
    time: u32,
    x: i32,
    y: i32,
    private: u32,
}

#[link(name = "user32")]
extern "system" {
    fn CreateWindowExW(
        extended: u32, class: *const u16, title: *const u16, style: u32, x: i32, y: i32, width: i32, height: i32,
        parent: Window, menu: *mut c_void, module: *mut c_void, parameter: *mut c_void,
    ) -> Window;
    fn IsWindow(window: Window) -> i32;
    fn GetMessageW(message: *mut Message, window: Window, first: u32, last: u32) -> i32;
    fn DispatchMessageW(message: *const Message) -> isize;
    fn PostMessageW(window: Window, message: u32, wide: usize, extra: isize) -> i32;
}

#[link(name = "kernel32")]
extern "system" {
    fn GetModuleHandleA(name: *const c_char) -> *mut c_void;
    fn GetProcAddress(module: *mut c_void, name: *const c_char) -> *mut c_void;
}

// --- the host ---

// The library knows the first member only.
#[repr(C)]
struct PrintingHost {
    base: IDialHost,
    window: Window,
}

static FUNCTIONS: IDialHostFunctions = IDialHostFunctions { on_rotation, get_window_handle, on_button_clicked };

fn window_of(host: *mut IDialHost) -> Window {
    unsafe { (*host.cast::<PrintingHost>()).window }
}

fn place(contact: &DialContactRect) -> String {
    format!("contact ({}, {}) to ({}, {})", contact.left, contact.top, contact.right, contact.bottom)
}

extern "C" fn on_rotation(_: *mut IDialHost, _: *mut c_void, info: *mut DialRotationInfo) {
    let info = unsafe { &*info };
    println!(
        "turn: {:.1} degrees, factor {:.2}, button {}, item {}, {}",
        info.delta_degrees,
        info.acceleration,
        if info.button_pressed { "down" } else { "up" },
        info.selected_item_tag,
        place(&info.contact)
    );
}

extern "C" fn get_window_handle(host: *mut IDialHost) -> u64 {
    window_of(host) as u64
}

// Posts a message, because the window may belong to another thread.
extern "C" fn on_button_clicked(host: *mut IDialHost, _: *mut c_void, rect: *const DialContactRect) {
    println!("click: {}", place(unsafe { &*rect }));
    unsafe { PostMessageW(window_of(host), WM_CLOSE, 0, 0) };
}

fn utf16(text: &str) -> Vec<u16> {
    text.encode_utf16().chain(Some(0)).collect()
}

// Rust's allocator is not that of the Universal C Runtime.
fn free_text(text: *mut u16) {
    let symbol = |name: &[u8]| CStr::from_bytes_with_nul(name).unwrap().as_ptr();
    unsafe {
        let free = GetProcAddress(GetModuleHandleA(symbol(b"ucrtbase.dll\0")), symbol(b"free\0"));
        assert!(!free.is_null());
        let free: extern "C" fn(*mut c_void) = std::mem::transmute(free);
        free(text.cast());
    }
}

// Copies a text that the library returned, and frees it.
fn take_text(text: *mut u16) -> Option<String> {
    if text.is_null() {
        return None;
    }
    let copy = unsafe {
        let length = (0..).take_while(|&index| *text.add(index) != 0).count();
        String::from_utf16_lossy(std::slice::from_raw_parts(text, length))
    };
    free_text(text);
    Some(copy)
}

fn write_and_read_setting() {
    let (resource, key, value) = (utf16(RESOURCE), utf16(KEY), utf16("Größe 7 €"));
    let text = unsafe {
        set_string_in_storage(resource.as_ptr(), key.as_ptr(), value.as_ptr());
        take_text(get_string_from_storage(resource.as_ptr(), key.as_ptr()))
    };
    println!("setting: {}", text.as_deref().unwrap_or("absent"));
}

fn fill_menu(window: Window) {
    let label = utf16("Volume");
    let item = MenuItemDescription {
        kind: KNOWN_ICON,
        display_text: label.as_ptr(),
        item_id: ITEM,
        haptic_feedback: 0,
        source: 3, // the platform's volume icon
        source2: 0,
        source3: 0,
    };
    unsafe {
        add_custom_menu(window as u64, &item, 1);
        set_current_custom_menu(window as u64, ITEM);
    }
}

fn make_window() -> Window {
    let (class, title) = (utf16("STATIC"), utf16("Host in Rust"));
    unsafe {
        CreateWindowExW(
            0, class.as_ptr(), title.as_ptr(), WS_VISIBLE_OVERLAPPEDWINDOW, 100, 100, 400, 300,
            null_mut(), null_mut(), null_mut(), null_mut(),
        )
    }
}

fn run_until_closed(window: Window) {
    unsafe {
        let mut message: Message = std::mem::zeroed();
        while IsWindow(window) != 0 && GetMessageW(&mut message, null_mut(), 0, 0) > 0 {
            DispatchMessageW(&message);
        }
    }
}

fn main() {
    let mut host = PrintingHost { base: IDialHost { functions: &FUNCTIONS }, window: make_window() };
    if host.window.is_null() || unsafe { initialize() } == 1 {
        eprintln!("no window, or no Windows Runtime");
        std::process::exit(1);
    }
    write_and_read_setting();
    // A pointer to the whole object, which must not move until uninit: the callbacks read its window.
    let object = std::ptr::addr_of_mut!(host);
    if unsafe { init_dial_listener(object.cast()) } {
        fill_menu(host.window);
        run_until_closed(host.window);
    }
    std::thread::sleep(std::time::Duration::from_millis(300)); // a callback may still run on another thread
    unsafe { uninit() };
    println!("end");
}
