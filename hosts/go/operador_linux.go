//go:build linux

package kestra

/*
#include <stdint.h>
extern int32_t kestraMensaje(void* contexto, char* texto, char* titulo, int32_t estilo);
extern int32_t kestraInformeEstados(void* contexto, char* impresora, char* fiscal, void* filas, int32_t cantidad);
extern void kestraMemoriaLlena(void* contexto);
*/
import "C"

import "unsafe"

//export kestraMensaje
func kestraMensaje(_ unsafe.Pointer, texto, titulo *C.char, estilo C.int32_t) C.int32_t {
	return C.int32_t(alMensaje((*byte)(unsafe.Pointer(texto)), (*byte)(unsafe.Pointer(titulo)), int32(estilo)))
}

//export kestraInformeEstados
func kestraInformeEstados(_ unsafe.Pointer, impresora, fiscal *C.char, filas unsafe.Pointer, cantidad C.int32_t) C.int32_t {
	return C.int32_t(alInformeEstados((*byte)(unsafe.Pointer(impresora)), (*byte)(unsafe.Pointer(fiscal)), filas, int32(cantidad)))
}

//export kestraMemoriaLlena
func kestraMemoriaLlena(_ unsafe.Pointer) {
	alMemoriaLlena()
}

func funcionesDelOperador() (mensaje, informeEstados, memoriaLlena uintptr) {
	return uintptr(unsafe.Pointer(C.kestraMensaje)), uintptr(unsafe.Pointer(C.kestraInformeEstados)),
		uintptr(unsafe.Pointer(C.kestraMemoriaLlena))
}
