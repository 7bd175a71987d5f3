/* The entry point of a program without a run-time library. */
__declspec(dllimport) __declspec(noreturn) void ExitProcess(unsigned status);
int main(void);

const int _fltused = 0;

void Start(void) { ExitProcess((unsigned)main()); }
