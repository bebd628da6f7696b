package kestra;

/** Una llamada que falló. getMessage() es la oración para el operador: qué pasó, si se hizo y qué hacer ahora. */
public final class ErrorFiscal extends RuntimeException {
    private static final long serialVersionUID = 1;
    private final String llamada;
    private final int desenlace;
    private final int causa;

    ErrorFiscal(String llamada, int desenlace, int causa, String oracion) {
        super(oracion.isEmpty() ? llamada + " falló: ver fiscal.log" : oracion);
        this.llamada = llamada;
        this.desenlace = desenlace;
        this.causa = causa;
    }

    /** La función que falló, como "EP_ImprimirItem". */
    public String llamada() {
        return llamada;
    }

    /** Un número de KESTRA_DESENLACE: si se hizo o no. */
    public int desenlace() {
        return desenlace;
    }

    /** Un número de KESTRA_CAUSA: por qué. */
    public int causa() {
        return causa;
    }
}
