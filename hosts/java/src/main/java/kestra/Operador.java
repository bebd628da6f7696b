package kestra;

import java.util.List;

/** Quien contesta en lugar de los cuadros de la biblioteca. Lo que lance vale como No o Cerrar. */
public interface Operador {
    /** estilo: 0 Aceptar, 4 y 36 Sí/No. Devuelve 1 Aceptar, 6 Sí, 7 No. */
    int mensaje(String texto, String titulo, int estilo);

    /** Devuelve si mandar otra vez. */
    boolean informeEstados(String impresora, String fiscal, List<Fila> filas);

    void memoriaLlena();
}
