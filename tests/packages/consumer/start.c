/* What a run-time library would do for a program that has none. */
__declspec(dllimport) __declspec(noreturn) void ExitProcess(unsigned status);
int main(void);

const int _fltused = 0;

void Start(void) { ExitProcess((unsigned)main()); }
