/* A library that somebody planted: it leaves its path in the file that KESTRA_MARKS names when it is loaded. */
#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, LPVOID reserved) {
  char marks[MAX_PATH];
  char path[MAX_PATH];
  DWORD length;
  HANDLE file;
  (void)reserved;
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  length = GetModuleFileNameA(self, path, sizeof path - 1);
  path[length] = '\n';
  if (GetEnvironmentVariableA("KESTRA_MARKS", marks, sizeof marks) == 0) return TRUE;
  file = CreateFileA(marks, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, NULL, OPEN_ALWAYS,
                     0, NULL);
  if (file != INVALID_HANDLE_VALUE) {
    WriteFile(file, path, length + 1, &length, NULL);
    CloseHandle(file);
  }
  return TRUE;
}
