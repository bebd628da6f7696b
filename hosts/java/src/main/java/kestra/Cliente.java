package kestra;

/** A quién se le hace el comprobante. Sin nada es un consumidor final. */
public final class Cliente {
    public String nombre = "";
    public String documentoTipo = "";
    public String documentoNumero = "";
    public String responsabilidadIva = "F";
    public String domicilio1 = "";
    public String domicilio2 = "";
    public String domicilio3 = "";
    public String linea4 = "";
    public String linea5 = "";

    public Cliente() {
    }

    public Cliente(String nombre, String documentoTipo, String documentoNumero, String responsabilidadIva, String domicilio1) {
        this.nombre = nombre;
        this.documentoTipo = documentoTipo;
        this.documentoNumero = documentoNumero;
        this.responsabilidadIva = responsabilidadIva;
        this.domicilio1 = domicilio1;
    }
}
