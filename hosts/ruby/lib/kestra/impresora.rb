# frozen_string_literal: true

module Kestra
  # Una llamada que falló. El mensaje es el que se le muestra al operador.
  class ErrorFiscal < StandardError
    # desenlace es un KESTRA_DESENLACE_..., qué fue del pedido; causa, un KESTRA_CAUSA_..., por qué.
    attr_reader :llamada, :desenlace, :causa

    def initialize(llamada, desenlace, causa, mensaje)
      super(mensaje)
      @llamada = llamada
      @desenlace = desenlace
      @causa = causa
    end
  end

  # Un método por función de la biblioteca, con textos de Ruby, y una excepción cuando algo falla. Lee el Fiscal.ini del
  # directorio de trabajo. Una por programa.
  class Impresora
    UTF_8 = 2 # modo de Kestra_Textos: textos terminados en cero, en UTF-8
    LARGO = 1024 # de los textos que dicen su propio largo
    EXITO = { 'EP_Init' => 1 }.freeze # en las demás funciones EP_, 0
    NOMBRES = { 'EP_Init' => 'iniciar', 'EP_Kill' => 'cerrar', 'Kestra_Numeracion' => 'ultimo_numero' }.freeze
    APARTE = %w[Kestra_DefinirOperador Kestra_Textos].freeze
    OPERADOR = [nil] # el que la biblioteca usa, que mientras tanto viva
    private_constant :OPERADOR, :UTF_8, :LARGO, :EXITO, :NOMBRES, :APARTE

    # EP_AbrirComprobanteFiscal, abrir_comprobante_fiscal.
    def self.nombre_del_metodo(funcion)
      NOMBRES[funcion] ||
        funcion.split('_', 2).last.delete('_').gsub(/(?<=[a-z])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])|(?<=Z)(?=por)/, '_').downcase
    end

    def self.abrir(*ruta)
      impresora = new(*ruta)
      yield impresora
    ensure
      impresora&.cerrar
    end

    def initialize(*ruta)
      @biblioteca = Declaraciones.cargar(*ruta)
      @biblioteca['Kestra_Textos'].call(UTF_8)
      iniciar
    end

    (Declaraciones::FUNCIONES.keys - APARTE).each do |funcion|
      define_method(nombre_del_metodo(funcion)) { |*valores, **nombrados| llamar(funcion, valores, nombrados) }
    end

    # Contesta en lugar de los cuadros, con los métodos que tenga de estos; nil vuelve a los cuadros.
    #
    #   mensaje(texto, titulo, estilo)              1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
    #   informe_estados(impresora, fiscal, filas)   verdadero para mandar otra vez
    #   memoria_llena
    def definir_operador(operador)
      propio = operador && Operador.new(operador)
      @biblioteca['Kestra_DefinirOperador'].call(propio&.direccion)
      OPERADOR.replace([propio])
    end

    private

    # Los argumentos van en orden o por nombre, y los que faltan, en blanco o en cero. Lo que la función escribe en un
    # búfer es lo que se devuelve.
    def llamar(funcion, valores, nombrados)
      buferes = []
      argumentos = Declaraciones::FUNCIONES[funcion][1].map do |nombre, tipo, bytes|
        next LARGO if nombre == 'longitud'
        next buferes.push(bufer(bytes.zero? ? LARGO : bytes)).last if tipo == Declaraciones::BUFER

        nombrado = nombrados.delete(nombre.to_sym)
        valor = valores.empty? ? nombrado : valores.shift
        tipo == Declaraciones::TEXTO ? valor.to_s.encode('UTF-8') : valor || 0
      end
      sobran = valores + nombrados.keys
      raise ArgumentError, "#{funcion}: sobran argumentos: #{sobran.join(', ')}" unless sobran.empty?

      resultado = @biblioteca[funcion].call(*argumentos)
      operacion = funcion.start_with?('EP_')
      raise error(funcion) if operacion ? resultado != EXITO.fetch(funcion, 0) : resultado == -1
      return texto(buferes.first) unless buferes.empty?

      operacion ? nil : resultado
    end

    # En cero, y con lugar para un cero detrás.
    def bufer(largo)
      "\0".b * (largo + 1)
    end

    def texto(bufer)
      bufer.unpack1('Z*').force_encoding('UTF-8')
    end

    def error(funcion)
      frase = bufer(LARGO)
      @biblioteca['Kestra_CausaTexto'].call(frase, LARGO)
      mensaje = texto(frase)
      mensaje = "#{funcion}: no se pudo hacer." if mensaje.empty?
      ErrorFiscal.new(funcion, @biblioteca['Kestra_Desenlace'].call, @biblioteca['Kestra_Causa'].call, mensaje)
    end
  end
end
