// A host in C#, for .NET, .NET Framework and Mono in 64-bit processes: prints turns and clicks of the dial, and ends at
// the first click. It has been run with Mono over the native test build, and not yet with .NET on Windows.
using System;
using System.Globalization;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

[StructLayout(LayoutKind.Sequential)]
struct DialContactRect
{
    public int Left, Top, Right, Bottom;

    public override string ToString()
    {
        return string.Format("contact ({0}, {1}) to ({2}, {3})", Left, Top, Right, Bottom);
    }
}

[StructLayout(LayoutKind.Sequential)]
struct DialRotationInfo
{
    public DialContactRect Contact;
    public byte ButtonPressed; // a bool field would be marshalled as four bytes
    public double DeltaDegrees;
    public double Acceleration;
    public uint SelectedItemTag;
    public IntPtr HapticRequest;
}

// Each source is a text, a module or a number; here a number.
[StructLayout(LayoutKind.Sequential)]
struct MenuItemDescription
{
    public const int KnownIcon = 2;

    public int Kind;
    [MarshalAs(UnmanagedType.LPWStr)] public string DisplayText;
    public uint ItemId;
    public byte HapticFeedback;
    public ulong Source, Source2, Source3;
}

static class Brindle
{
    const string Library = "brindle";

    [DllImport(Library, EntryPoint = "initialize")]
    public static extern int Initialize();

    [DllImport(Library, EntryPoint = "uninit")]
    public static extern void Uninit();

    [DllImport(Library, EntryPoint = "init_dial_listener")]
    [return: MarshalAs(UnmanagedType.I1)]
    public static extern bool InitDialListener(IntPtr host);

    [DllImport(Library, EntryPoint = "add_custom_menu")]
    [return: MarshalAs(UnmanagedType.I1)]
    public static extern bool AddCustomMenu(ulong window, [In] MenuItemDescription[] items, uint count);

    [DllImport(Library, EntryPoint = "set_current_custom_menu")]
    [return: MarshalAs(UnmanagedType.I1)]
    public static extern bool SetCurrentCustomMenu(ulong window, uint itemId);

    [DllImport(Library, EntryPoint = "set_string_in_storage", CharSet = CharSet.Unicode)]
    public static extern int SetString(string resource, string key, string value);

    // Not a string: the runtime would free the text with another function.
    [DllImport(Library, EntryPoint = "get_string_from_storage", CharSet = CharSet.Unicode)]
    static extern IntPtr GetStringBuffer(string resource, string key);

    [DllImport("ucrtbase", EntryPoint = "free", CallingConvention = CallingConvention.Cdecl)]
    static extern void FreeOnWindows(IntPtr text);

    [DllImport("libc", EntryPoint = "free")]
    static extern void FreeNatively(IntPtr text);

    // Returns null for an absent text.
    public static string GetString(string resource, string key)
    {
        IntPtr buffer = GetStringBuffer(resource, key);
        string text = Marshal.PtrToStringUni(buffer);
        if (Desktop.OnWindows)
            FreeOnWindows(buffer);
        else
            FreeNatively(buffer);
        return text;
    }
}

// The host's window. The native test build has no windows: there any number is a handle.
static class Desktop
{
    public static readonly bool OnWindows = Environment.OSVersion.Platform == PlatformID.Win32NT;

    const uint VisibleOverlappedWindow = 0x10CF0000;
    const uint Close = 0x0010; // WM_CLOSE

    [StructLayout(LayoutKind.Sequential)]
    struct Message
    {
        public IntPtr Window;
        public uint Number;
        public IntPtr Wide, Extra;
        public uint Time;
        public int X, Y;
        public uint Private;
    }

    static readonly ManualResetEvent closed = new ManualResetEvent(false);

    [DllImport("user32", CharSet = CharSet.Unicode, ExactSpelling = true)]
    static extern IntPtr CreateWindowExW(uint extended, string kind, string title, uint style, int x, int y, int width,
                                         int height, IntPtr parent, IntPtr menu, IntPtr module, IntPtr parameter);

    [DllImport("user32")]
    [return: MarshalAs(UnmanagedType.Bool)]
    static extern bool IsWindow(IntPtr window);

    [DllImport("user32", ExactSpelling = true)]
    static extern int GetMessageW(out Message message, IntPtr window, uint first, uint last);

    [DllImport("user32", ExactSpelling = true)]
    static extern IntPtr DispatchMessageW(ref Message message);

    [DllImport("user32", ExactSpelling = true)]
    static extern int PostMessageW(IntPtr window, uint message, IntPtr wide, IntPtr extra);

    public static IntPtr MakeWindow()
    {
        if (!OnWindows)
            return new IntPtr(1);
        return CreateWindowExW(0, "STATIC", "Host in C#", VisibleOverlappedWindow, 100, 100, 400, 300, IntPtr.Zero,
                               IntPtr.Zero, IntPtr.Zero, IntPtr.Zero);
    }

    // May be called on any thread.
    public static void CloseWindow(IntPtr window)
    {
        if (OnWindows)
            PostMessageW(window, Close, IntPtr.Zero, IntPtr.Zero);
        else
            closed.Set();
    }

    public static void RunUntilClosed(IntPtr window)
    {
        if (!OnWindows)
            closed.WaitOne();
        Message message;
        while (OnWindows && IsWindow(window) && GetMessageW(out message, IntPtr.Zero, 0, 0) > 0)
            DispatchMessageW(ref message);
    }
}

// The callback object: a pointer to a table of three functions, in memory that the garbage collector does not move. The
// delegates are fields, because the collector does not see that the library calls them. No exception may leave one.
sealed class DialHost
{
    delegate void RotationCallback(IntPtr self, IntPtr sender, ref DialRotationInfo info);
    delegate ulong WindowCallback(IntPtr self);
    delegate void ClickCallback(IntPtr self, IntPtr sender, ref DialContactRect rect);

    readonly RotationCallback onRotation;
    readonly WindowCallback getWindowHandle;
    readonly ClickCallback onButtonClicked;
    readonly IntPtr window;

    public DialHost(IntPtr window)
    {
        this.window = window;
        onRotation = OnRotation;
        getWindowHandle = GetWindowHandle;
        onButtonClicked = OnButtonClicked;

        int slot = IntPtr.Size;
        Address = Marshal.AllocHGlobal(4 * slot);
        Marshal.WriteIntPtr(Address, Address + slot);
        Marshal.WriteIntPtr(Address, slot, Marshal.GetFunctionPointerForDelegate(onRotation));
        Marshal.WriteIntPtr(Address, 2 * slot, Marshal.GetFunctionPointerForDelegate(getWindowHandle));
        Marshal.WriteIntPtr(Address, 3 * slot, Marshal.GetFunctionPointerForDelegate(onButtonClicked));
    }

    public IntPtr Address { get; private set; }

    void OnRotation(IntPtr self, IntPtr sender, ref DialRotationInfo info)
    {
        Console.WriteLine(string.Format(CultureInfo.InvariantCulture,
                                        "turn: {0:F1} degrees, factor {1:F2}, button {2}, item {3}, {4}",
                                        info.DeltaDegrees, info.Acceleration, info.ButtonPressed != 0 ? "down" : "up",
                                        info.SelectedItemTag, info.Contact));
    }

    ulong GetWindowHandle(IntPtr self)
    {
        return (ulong)window.ToInt64();
    }

    void OnButtonClicked(IntPtr self, IntPtr sender, ref DialContactRect rect)
    {
        Console.WriteLine("click: {0}", rect);
        Desktop.CloseWindow(window);
    }
}

static class Program
{
    const string Resource = "Example host";
    const string Key = "Example host/last brush";
    const uint Item = 7;

    // A static field lives until uninit; the compiler may end the life of a local variable earlier.
    static DialHost host;

    static void FillMenu(ulong window)
    {
        var item = new MenuItemDescription
        {
            Kind = MenuItemDescription.KnownIcon,
            DisplayText = "Volume",
            ItemId = Item,
            Source = 3, // the platform's volume icon
        };
        Brindle.AddCustomMenu(window, new[] { item }, 1);
        Brindle.SetCurrentCustomMenu(window, Item);
    }

    // Without the attribute .NET makes the thread multithreaded, and initialize returns 1.
    [STAThread]
    static int Main()
    {
        Console.OutputEncoding = new UTF8Encoding(false);
        IntPtr window = Desktop.MakeWindow();
        if (window == IntPtr.Zero || Brindle.Initialize() == 1)
        {
            Console.Error.WriteLine("no window, or no Windows Runtime");
            return 1;
        }
        Brindle.SetString(Resource, Key, "Größe 7 €");
        Console.WriteLine("setting: {0}", Brindle.GetString(Resource, Key) ?? "absent");
        host = new DialHost(window);
        if (Brindle.InitDialListener(host.Address))
        {
            FillMenu((ulong)window.ToInt64());
            Desktop.RunUntilClosed(window);
        }
        Thread.Sleep(300); // a callback may still run on another thread
        Brindle.Uninit();
        Console.WriteLine("end");
        return 0;
    }
}
