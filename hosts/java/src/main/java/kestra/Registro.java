package kestra;

import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import java.util.ArrayList;
import java.util.List;
import java.util.function.IntSupplier;

/** Un operador como lo llama la biblioteca. */
final class Registro {
    private Registro() {
    }

    static Kestra.KestraOperador de(Operador operador) {
        Kestra.KestraOperador registro = new Kestra.KestraOperador();
        registro.tamano = registro.size();
        registro.mensaje = (contexto, texto, titulo, estilo) ->
            sinCaer(() -> operador.mensaje(texto(texto), texto(titulo), estilo));
        registro.informe_estados = (contexto, impresora, fiscal, filas, cantidad) ->
            sinCaer(() -> operador.informeEstados(texto(impresora), texto(fiscal), filas(filas, cantidad)) ? 1 : 0);
        registro.memoria_llena = contexto -> sinCaer(() -> {
            operador.memoriaLlena();
            return 0;
        });
        return registro;
    }

    // Lo que lance se muestra, y vale como No o Cerrar: a través de la biblioteca no puede salir.
    private static int sinCaer(IntSupplier contestar) {
        try {
            return contestar.getAsInt();
        } catch (RuntimeException | Error error) {
            error.printStackTrace();
            return 0;
        }
    }

    private static String texto(Pointer texto) {
        return texto.getString(0, "UTF-8");
    }

    private static List<Fila> filas(Pointer filas, int cantidad) {
        List<Fila> propias = new ArrayList<>();
        int largo = new Kestra.KestraFila().size();
        for (int lugar = 0; lugar < cantidad; lugar++) {
            Kestra.KestraFila fila = Structure.newInstance(Kestra.KestraFila.class, filas.share((long) lugar * largo));
            fila.read();
            propias.add(new Fila(fila));
        }
        return propias;
    }
}
