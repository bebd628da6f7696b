# frozen_string_literal: true

require 'fiddle/struct'

module Kestra
  # Un renglón del informe de estados.
  Fila = Struct.new(:grupo, :numero, :clase, :encendida, :texto, :ayuda)

  # Quien contesta en lugar de los cuadros de la biblioteca, como ella lo llama.
  class Operador
    ENTERO = Fiddle::TYPE_INT
    PUNTERO = Fiddle::TYPE_VOIDP
    FILA = Fiddle::CStructBuilder.create(Fiddle::CStruct, [ENTERO] * 4 + [PUNTERO] * 2, Fila.members.map(&:to_s))
    REGISTRO = Fiddle::CStructBuilder.create(Fiddle::CStruct, [-ENTERO] + [PUNTERO] * 4,
                                             %w[tamano contexto mensaje informe_estados memoria_llena])
    FUNCIONES = {
      mensaje: [ENTERO, [PUNTERO, PUNTERO, PUNTERO, ENTERO]],
      informe_estados: [ENTERO, [PUNTERO, PUNTERO, PUNTERO, PUNTERO, ENTERO]],
      memoria_llena: [Fiddle::TYPE_VOID, [PUNTERO]]
    }.freeze
    private_constant :ENTERO, :PUNTERO, :FILA, :REGISTRO, :FUNCIONES

    # La dirección del registro; vale mientras viva este objeto.
    attr_reader :direccion

    def initialize(operador)
      @operador = operador
      @registro = REGISTRO.malloc(Fiddle::RUBY_FREE)
      @registro.tamano = REGISTRO.size
      @registro.contexto = nil
      @funciones = FUNCIONES.to_h do |nombre, tipos|
        propia = funcion(nombre, *tipos) if operador.respond_to?(nombre)
        @registro.public_send("#{nombre}=", propia)
        [nombre, propia]
      end
      @direccion = @registro.to_ptr
    end

    private

    # Lo que lance se muestra, y vale como No o Cerrar: a través de la biblioteca no puede salir.
    def funcion(nombre, devuelve, argumentos)
      Fiddle::Closure::BlockCaller.new(devuelve, argumentos, Declaraciones.convencion) do |_, *dichos|
        send("al_#{nombre}", *dichos)
      rescue StandardError => e
        warn(e.full_message)
        0
      end
    end

    def al_mensaje(texto, titulo, estilo)
      @operador.mensaje(en_utf8(texto), en_utf8(titulo), estilo).to_i
    end

    def al_informe_estados(impresora, fiscal, filas, cantidad)
      propias = Array.new(cantidad) do |lugar|
        fila = FILA.new(filas + lugar * FILA.size)
        Fila.new(fila.grupo, fila.numero, fila.clase, fila.encendida != 0, en_utf8(fila.texto), en_utf8(fila.ayuda))
      end
      @operador.informe_estados(en_utf8(impresora), en_utf8(fiscal), propias) ? 1 : 0
    end

    def al_memoria_llena
      @operador.memoria_llena
      0
    end

    def en_utf8(texto)
      texto.to_s.force_encoding('UTF-8')
    end
  end
  private_constant :Operador
end
