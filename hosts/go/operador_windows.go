//go:build windows

package kestra

import (
	"syscall"
	"unsafe"
)

// Windows hace lugar para unas pocas funciones así, que no se sueltan nunca: se hacen una vez.
var (
	suMensaje = syscall.NewCallback(func(_ uintptr, texto, titulo *byte, estilo uintptr) uintptr {
		return uintptr(alMensaje(texto, titulo, int32(estilo)))
	})
	suInformeEstados = syscall.NewCallback(func(_ uintptr, impresora, fiscal *byte, filas unsafe.Pointer, cantidad uintptr) uintptr {
		return uintptr(alInformeEstados(impresora, fiscal, filas, int32(cantidad)))
	})
	suMemoriaLlena = syscall.NewCallback(func(_ uintptr) uintptr {
		alMemoriaLlena()
		return 0
	})
)

func funcionesDelOperador() (mensaje, informeEstados, memoriaLlena uintptr) {
	return suMensaje, suInformeEstados, suMemoriaLlena
}
