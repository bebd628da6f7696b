package kestra;

/** Un renglón del informe de estados. */
public final class Fila {
    public final int grupo; // 0 renglón de la impresora, 1 fiscal
    public final int numero;
    public final int clase; // 0 información, 1 error
    public final boolean encendida;
    public final String texto;
    public final String ayuda;

    Fila(Kestra.KestraFila fila) {
        grupo = fila.grupo;
        numero = fila.numero;
        clase = fila.clase;
        encendida = fila.encendida != 0;
        texto = fila.texto.getString(0, "UTF-8");
        ayuda = fila.ayuda.getString(0, "UTF-8");
    }
}
