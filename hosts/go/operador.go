package kestra

import (
	"fmt"
	"os"
	"unsafe"
)

// Fila es un renglón del informe de estados.
type Fila struct {
	Grupo, Numero, Clase int32 // Grupo: 0 de la impresora, 1 fiscal; Clase: 0 información, 1 error
	Encendida            bool
	Texto, Ayuda         string
}

// Operador contesta en lugar de los cuadros de la biblioteca. Si entra en pánico, se muestra y vale como No o Cerrar.
type Operador interface {
	Mensaje(texto, titulo string, estilo int32) int32           // 1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
	InformeEstados(impresora, fiscal string, filas []Fila) bool // si mandar otra vez
	MemoriaLlena()
}

// Como los pone la biblioteca en memoria.
type filaSuya struct {
	grupo, numero, clase, encendida int32
	texto, ayuda                    *byte
}

type registroSuyo struct {
	tamano                                          uint32
	contexto, mensaje, informeEstados, memoriaLlena uintptr
}

var operador Operador // uno por programa, como la biblioteca

// DefinirOperador contesta en lugar de los cuadros; con nil vuelven los cuadros.
func (i *Impresora) DefinirOperador(nuevo Operador) {
	operador = nuevo
	if nuevo == nil {
		Kestra_DefinirOperador(nil)
		return
	}
	registro := &registroSuyo{}
	registro.tamano = uint32(unsafe.Sizeof(*registro))
	registro.mensaje, registro.informeEstados, registro.memoriaLlena = funcionesDelOperador()
	Kestra_DefinirOperador(unsafe.Pointer(registro))
}

// A través de la biblioteca no puede salir un pánico.
func sinCaer() {
	if falla := recover(); falla != nil {
		fmt.Fprintln(os.Stderr, "operador:", falla)
	}
}

func alMensaje(texto, titulo *byte, estilo int32) (dado int32) {
	defer sinCaer()
	return operador.Mensaje(textoEn(texto), textoEn(titulo), estilo)
}

func alInformeEstados(impresora, fiscal *byte, filas unsafe.Pointer, cantidad int32) (dado int32) {
	defer sinCaer()
	var propias []Fila
	for _, fila := range unsafe.Slice((*filaSuya)(filas), cantidad) {
		propias = append(propias, Fila{fila.grupo, fila.numero, fila.clase, fila.encendida != 0, textoEn(fila.texto),
			textoEn(fila.ayuda)})
	}
	if operador.InformeEstados(textoEn(impresora), textoEn(fiscal), propias) {
		return 1
	}
	return 0
}

func alMemoriaLlena() {
	defer sinCaer()
	operador.MemoriaLlena()
}

// textoEn da el texto que empieza ahí y termina en cero.
func textoEn(texto *byte) string {
	largo := 0
	for *(*byte)(unsafe.Add(unsafe.Pointer(texto), largo)) != 0 {
		largo++
	}
	return string(unsafe.Slice(texto, largo))
}
