package kestra

import (
	"bufio"
	"fmt"
	"os"
	"path/filepath"
	"regexp"
	"strings"
)

var (
	clave    = regexp.MustCompile(`(?i)^\s*ImpresoraDispositivo\s*=(.*)$`)
	aqui     = regexp.MustCompile(`^tcp:(127(\.[0-9]{1,3}){3}|localhost|\[?::1\]?):[0-9]+$`)
	terminal = regexp.MustCompile(`^/dev/pts/[0-9]+$`)
)

// ExigirImpresoraVirtual es para ejemplos y pruebas: sin --impresora-real termina el programa (2) si la impresora de
// ./Fiscal.ini no es virtual.
func ExigirImpresoraVirtual() {
	for _, argumento := range os.Args[1:] {
		if argumento == "--impresora-real" {
			return
		}
	}
	alguna, todas := false, true
	if ini, err := os.Open("Fiscal.ini"); err == nil {
		defer ini.Close()
		for lineas := bufio.NewScanner(ini); lineas.Scan(); {
			if partes := clave.FindStringSubmatch(lineas.Text()); partes != nil {
				alguna = true
				todas = todas && EsVirtual(strings.TrimSpace(partes[1]))
			}
		}
	}
	// La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
	if !alguna || !todas || os.Getenv("KESTRA_DISPOSITIVO") != "" {
		fmt.Fprintln(os.Stderr, "La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.")
		os.Exit(2)
	}
}

// EsVirtual dice si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal.
func EsVirtual(dispositivo string) bool {
	if aqui.MatchString(dispositivo) || strings.HasPrefix(dispositivo, `\\.\pipe\`) {
		return true
	}
	real, err := filepath.EvalSymlinks(dispositivo)
	if err == nil {
		real, err = filepath.Abs(real)
	}
	return err == nil && terminal.MatchString(real)
}
